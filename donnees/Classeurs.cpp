#include "Classeurs.h"

#include "Banc.h"
#include "Campagnes.h"
#include "platform/Arrondi.h"
#include "TableCsv.h"

#include <functional>
#include <QHash>
#include <QTime>

namespace
{
const QDate PREMIER_JOUR(2019, 1, 1);
const QDate DERNIER_JOUR(2019, 3, 31);

// Headers of the physico-chemical layout; the order is the sender's own business, an import finds them by name.
QVector<QVariant> entetesAnalyses()
{
    return {"Code Agence",
            "Nom",
            "Date",
            "Heure",
            "Paramètre",
            "Valeur",
            "Unité de mesure",
            "Code remarque",
            "Code Fraction",
            "Seuil de détection",
            "Commentaire",
            "Protocole de prélèvement",
            "Gestionnaire",
            "Organisme préleveur",
            "Laboratoire d'analyses",
            "Réseau de mesure"};
}

QHash<QString, QString> libelles(const QString &fichier, const QString &code, const QString &nom)
{
    const TableCsv table(fichier);
    QHash<QString, QString> resultat;
    for (int i = 0; i < table.lignes(); ++i)
        resultat.insert(table.texte(i, code), table.texte(i, nom));
    return resultat;
}

QString libelleProtocole(const QString &code)
{
    return code == "1" ? "Suivi calendaire" : code == "2" ? "Suivi pluie" : "Non spécifié";
}

// One sheet of these rows, the first being the header.
void ecrire(Tableur &tableur, const QString &nomFeuille, const Valeurs &lignes, const QString &fichier)
{
    const auto classeur = tableur.ajouter();
    Feuille feuille = classeur->feuille(1);
    feuille.renommer(nomFeuille);
    const int colonnes = static_cast<int>(lignes[0].size());
    feuille.plage(1, 1, static_cast<int>(lignes.size()), colonnes).ecrire(lignes);
    Plage entete = feuille.plage(1, 1, 1, colonnes);
    entete.gras(true);
    entete.fond(15);
    for (int c = 1; c <= colonnes; ++c) {
        // Wide enough for the header and for most of the first rows: two millimetres a character.
        qsizetype large = 0;
        for (qsizetype i = 0; i < std::min<qsizetype>(lignes.size(), 40); ++i)
            large = std::max(large, lignes[i][c - 1].toString().size());
        feuille.largeurColonne(c, static_cast<int>(std::clamp<qsizetype>(large, 8, 45)) * 200);
    }
    classeur->enregistrerSous(fichier);
    classeur->fermer();
}

QString decimaleFrancaise(double valeur)
{
    return QString::number(valeur, 'g', 10).replace(u'.', u',');
}
} // namespace

void Classeurs::creerAnalyses(Tableur &tableur, const Campagnes &campagnes, const QString &donnees,
                              const QString &fichier)
{
    const QString etude = donnees + "/etude/", referentiel = donnees + "/referentiel/";
    const auto stations = libelles(etude + "stations.csv", "code", "nom");
    const auto intervenants = libelles(etude + "intervenants.csv", "code", "nom");
    const auto reseaux = libelles(etude + "reseaux.csv", "code", "libelle");
    const auto parametres = libelles(referentiel + "parametres.csv", "code", "nom");
    const auto unites = libelles(referentiel + "parametres.csv", "code", "unite");
    const auto symboles = libelles(referentiel + "unites.csv", "code", "symbole");

    Valeurs lignes{entetesAnalyses()};
    for (const Prelevement &p : campagnes.prelevements("classeur_2019.csv")) {
        const QVariant station =
            p.station.startsWith(u'0') ? QVariant(p.station) : QVariant(p.station.toDouble());
        for (const Resultat &r : p.resultats) {
            if (r.valeur.isNull())
                continue; // a laboratory sends no row for a broken bottle
            const qsizetype rang = lignes.size();
            const double valeur = r.valeur.toDouble();
            const QTime heure = QTime::fromString(p.heure.toString(), "hh:mm:ss");
            lignes.append({station, stations.value(p.station), p.date,
                           p.heure.isNull() ? QVariant()
                           : rang % 6 == 0  ? QVariant(heure.toString("hh:mm"))
                                            : QVariant(heure),
                           parametres.value(r.parametre),
                           rang % 5 == 0 ? QVariant(decimaleFrancaise(valeur)) : QVariant(valeur),
                           symboles.value(unites.value(r.parametre)), r.remarque.toDouble(),
                           r.fraction.toDouble(), r.seuil, r.commentaire_resultat,
                           libelleProtocole(p.protocole.toString()), intervenants.value(r.gestionnaire),
                           intervenants.value(p.preleveur), intervenants.value(r.laboratoire.toString()),
                           reseaux.value(r.reseau)});
        }
    }
    ecrire(tableur, "Analyses", lignes, fichier);
}

void Classeurs::creerAnalysesACorriger(Tableur &tableur, const QString &donnees, const QString &fichier)
{
    const auto stations = libelles(donnees + "/etude/stations.csv", "code", "nom");
    const auto intervenants = libelles(donnees + "/etude/intervenants.csv", "code", "nom");
    const auto reseaux = libelles(donnees + "/etude/reseaux.csv", "code", "libelle");
    const QString syndicat = intervenants.value("99900000100011"),
                  rive = intervenants.value("99900000700017");
    Valeurs lignes{entetesAnalyses()};
    const auto ajouter = [&](const QString &code, const QString &nom, QDate date, double valeur,
                             const QString &unite, const QString &preleveur) {
        lignes.append({code, nom, date, QTime(10, 40), "Nitrates", valeur, unite, 1.0, 3.0, "1", QVariant(),
                       libelleProtocole("1"), syndicat, preleveur, intervenants.value("99900000500015"),
                       reseaux.value("0499000001")});
    };
    const QString plouvaldy = "04999020", milligrammes = "mg(NO3)/L";
    ajouter(plouvaldy, stations.value(plouvaldy), {2019, 4, 8}, 27.4, milligrammes, rive);
    ajouter("04999099", "Ruisseau du Pont-Neuf", {2019, 4, 8}, 31.2, milligrammes, rive);
    ajouter(plouvaldy, stations.value(plouvaldy), {2019, 5, 8}, 25100, "µg/L", rive);
    ajouter(plouvaldy, stations.value(plouvaldy), {2019, 6, 10}, 22.8, milligrammes, "Stagiaire du syndicat");
    ajouter(plouvaldy, stations.value(plouvaldy), {2019, 7, 8}, 21.6, milligrammes, rive);
    ecrire(tableur, "Analyses", lignes, fichier);
}

void Classeurs::creerAnalysesAvecNouveautes(Tableur &tableur, const QString &donnees, const QString &fichier)
{
    const auto stations = libelles(donnees + "/etude/stations.csv", "code", "nom");
    const auto intervenants = libelles(donnees + "/etude/intervenants.csv", "code", "nom");
    const auto reseaux = libelles(donnees + "/etude/reseaux.csv", "code", "libelle");
    struct Ligne {
        QString code = "04999020", nom;
        QString parametre = "Nitrates", unite = "mg(NO3)/L";
        double valeur = 20;
        QString gestionnaire, preleveur, laboratoire, reseau;
    };
    Ligne modele;
    modele.nom = stations.value(modele.code);
    modele.gestionnaire = intervenants.value("99900000100011");
    modele.preleveur = intervenants.value("99900000700017");
    modele.laboratoire = intervenants.value("99900000500015");
    modele.reseau = reseaux.value("0499000001");
    Valeurs lignes{entetesAnalyses()};
    // Each row a week after the one before.
    const auto ajouter = [&](const std::function<void(Ligne &)> &changer) {
        Ligne l = modele;
        changer(l);
        const QDate date = QDate(2019, 4, 1).addDays(7 * (lignes.size() - 1));
        lignes.append({l.code, l.nom, date, QTime(10, 40), l.parametre, l.valeur, l.unite, 1.0, 3.0, "1",
                       QVariant(), libelleProtocole("1"), l.gestionnaire, l.preleveur, l.laboratoire,
                       l.reseau});
    };
    const auto moulin = [](Ligne &l) { l.code = "04999098", l.nom = "Moulin de l'Étang"; };
    ajouter([](Ligne &) {});
    ajouter(moulin);
    ajouter(moulin);
    ajouter([](Ligne &l) { l.parametre = "Cobalt", l.unite = "µg/L", l.valeur = 0.4; });
    ajouter([](Ligne &l) { l.gestionnaire = "Communauté du Haut-Orvannec"; });
    ajouter([](Ligne &l) { l.unite = "µg/L", l.valeur = 21000; });
    ajouter([](Ligne &l) { l.preleveur = "Sentinelles de la Cordevaise"; });
    ajouter([](Ligne &l) { l.laboratoire = "Laboratoire des Rives"; });
    ajouter([](Ligne &l) { l.reseau = "Réseau des étangs"; });
    ajouter([](Ligne &l) { l.code = "04999097", l.nom = "Station abandonnée"; });
    ajouter([](Ligne &l) { l.gestionnaire = "Un inconnu"; });
    ecrire(tableur, "Analyses", lignes, fichier);
}

void Classeurs::creerDebits(Tableur &tableur, const Campagnes &campagnes, const QString &donnees,
                            const QString &fichier)
{
    Valeurs lignes{{"Type de débit", "Numéro de la station", "Date", "Heure", "Débit (l/s)"}};
    const TableCsv stations(donnees + "/etude/stations_hydro.csv");
    for (int i = 0; i < stations.lignes(); ++i) {
        const QString code = stations.texte(i, "code");
        QMap<QDate, double> sommes;
        for (QDate jour = PREMIER_JOUR; jour <= DERNIER_JOUR; jour = jour.addDays(1)) {
            const double debit = campagnes.debit_l_s(code, jour);
            lignes.append({"QJO", code, jour, QVariant(), debit});
            sommes[QDate(jour.year(), jour.month(), 1)] += debit;
        }
        for (auto mois = sommes.cbegin(); mois != sommes.cend(); ++mois)
            lignes.append(
                {"QME", code, mois.key(), QVariant(), arrondir(mois.value() / mois.key().daysInMonth(), 0)});
    }
    ecrire(tableur, "Débits", lignes, fichier);
}

void Classeurs::creerPluies(Tableur &tableur, const Campagnes &campagnes, const QString &donnees,
                            const QString &fichier)
{
    Valeurs lignes{{"Code_station", "Date", "Mesures", "Commentaire", "Gestionnaire"}};
    const TableCsv station(donnees + "/etude/station_pluvio.csv");
    const auto intervenants = libelles(donnees + "/etude/intervenants.csv", "code", "nom");
    const QString gestionnaire = intervenants.value(station.liste(0, "gestionnaires").value(0));
    for (QDate jour = PREMIER_JOUR; jour <= DERNIER_JOUR; jour = jour.addDays(1)) {
        const double pluie = campagnes.pluie_mm(jour);
        lignes.append({station.texte(0, "code"), jour, pluie,
                       pluie >= 15 ? QVariant("Forte pluie") : QVariant(), gestionnaire});
    }
    ecrire(tableur, "Pluies", lignes, fichier);
}

void Classeurs::creerBanc(Tableur &tableur, const Banc &banc, int nombre, const QString &fichier)
{
    Valeurs lignes{entetesAnalyses()};
    lignes.reserve(nombre + 1);
    banc.lignes(nombre, [&](const Banc::Ligne &l) {
        lignes.append({l.codeStation, l.nomStation, l.date, QTime::fromString(l.heure, "hh:mm"), l.parametre,
                       l.valeur, l.unite, l.remarque, l.fraction, l.seuil, l.commentaire, l.protocole,
                       l.gestionnaire, l.preleveur, l.laboratoire, l.reseau});
    });
    ecrire(tableur, "Analyses", lignes, fichier);
}
