#include "Campagnes.h"

#include "Hasard.h"
#include "platform/Arrondi.h"
#include "platform/Erreur.h"
#include "TableCsv.h"

#include <algorithm>
#include <cmath>

namespace
{
const QDate PREMIER_JOUR(2008, 1, 1);
const QDate DERNIER_JOUR(2019, 12, 31); // a year beyond the study, for the laboratory's workbook

// Campaigns of a flood need a rain of this size over two days, and this many days since the last one.
constexpr double PLUIE_DE_CRUE_MM = 22.0;
constexpr int JOURS_ENTRE_CRUES = 35;

const char *const COMMENTAIRES[] = {"Résultat confirmé", "Dosage refait", "Eau trouble",
                                    "Échantillon reçu à plus de 8 °C"};

// "1-12", "10-5" (across the new year), "2,4,6"
bool moisVoulu(const QString &mois, int numero)
{
    const QStringList bornes = mois.split(u'-');
    if (bornes.size() == 2) {
        const int premier = bornes[0].toInt(), dernier = bornes[1].toInt();
        return premier <= dernier ? numero >= premier && numero <= dernier
                                  : numero >= premier || numero <= dernier;
    }
    return mois.split(u',').contains(QString::number(numero));
}

QDate jourOuvre(QDate date)
{
    return date.dayOfWeek() <= 5 ? date : date.addDays(8 - date.dayOfWeek());
}

QVariant seuilEnTexte(const QVariant &lq)
{
    return lq.isNull() ? QVariant() : QVariant(QString::number(lq.toDouble()).replace(u'.', u','));
}
} // namespace

struct Campagnes::Campagne {
    QString station;
    QDate debut;
    QDate fin;
    QString mois;
    QString jour; // day of the month, or "pluie"
    QVariant heure;
    QStringList programmes;
    QVariant protocole;
    QString gestionnaire;
    QString preleveur;
    QString producteur;
    QString laboratoire;
    QStringList reseaux;

    // Data taken over from an older file bear neither protocol nor remark codes.
    bool ancienne() const { return protocole.isNull(); }
};

Campagnes::Campagnes(const QString &dossier) : m_dossier(dossier)
{
    const TableCsv hydro(dossier + "/stations_hydro.csv");
    for (int i = 0; i < hydro.lignes(); ++i) {
        const QString code = hydro.texte(i, "code");
        m_bassins[code] = {
            hydro.nombre(i, "superficie_km2"),
            std::make_shared<Hydrologie>(PREMIER_JOUR, DERNIER_JOUR, hydro.nombre(i, "part_rapide"), code)};
    }
    const TableCsv eaux(dossier + "/eaux.csv");
    for (int i = 0; i < eaux.lignes(); ++i) {
        const auto lire = [&](const char *colonne) { return eaux.nombre(i, QLatin1String(colonne)); };
        m_rivieres[eaux.texte(i, "station")].eau = {
            lire("nitrates"), lire("phosphore"), lire("ammonium"),   lire("particules"),
            lire("carbone"),  lire("bacteries"), lire("pesticides"), lire("mineralisation")};
    }
    const TableCsv stations(dossier + "/stations.csv");
    for (int i = 0; i < stations.lignes(); ++i) {
        Riviere &riviere = m_rivieres[stations.texte(i, "code")];
        const QString liee = stations.texte(i, "station_hydro");
        riviere.stationHydro = liee.isEmpty() ? m_bassins.begin()->first : liee;
        riviere.superficie_km2 = stations.nombre(i, "superficie_km2");
    }
    const TableCsv analyses(dossier + "/analyses.csv");
    for (int i = 0; i < analyses.lignes(); ++i)
        m_analyses[{analyses.texte(i, "parametre"), analyses.texte(i, "fraction")}] = {
            static_cast<int>(analyses.nombre(i, "decimales")),
            analyses.nombreOuNul(i, "ld"),
            analyses.nombreOuNul(i, "lq"),
            analyses.nombreOuNul(i, "ls"),
            analyses.valeur(i, "methode"),
            analyses.texte(i, "lieu")};
    const TableCsv programmes(dossier + "/programmes.csv");
    for (int i = 0; i < programmes.lignes(); ++i)
        m_programmes[programmes.texte(i, "programme")].append(
            {programmes.texte(i, "parametre"), programmes.texte(i, "fraction")});
    // The programme "pesticides" is all of their table.
    const TableCsv pesticides(dossier + "/pesticides.csv");
    for (int i = 0; i < pesticides.lignes(); ++i) {
        const QString code = pesticides.texte(i, "parametre");
        m_molecules[code] = {static_cast<int>(pesticides.nombre(i, "jour_pic")),
                             pesticides.nombre(i, "etalement_j"), pesticides.nombre(i, "pic_ug_l"),
                             pesticides.nombre(i, "fond_ug_l"),
                             pesticides.nombreOuNul(i, "annee_fin").toInt()};
        const double lq = pesticides.nombre(i, "lq");
        m_analyses[{code, "23"}] = {3, arrondir(lq / 4, 4), lq, {}, pesticides.valeur(i, "methode"), "2"};
        m_programmes["pesticides"].append({code, "23"});
    }
}

QDate Campagnes::debut() const
{
    return PREMIER_JOUR;
}

QDate Campagnes::fin() const
{
    return DERNIER_JOUR;
}

double Campagnes::pluie_mm(QDate date) const
{
    return m_bassins.begin()->second.hydrologie->jour(date).pluie_mm;
}

double Campagnes::debit_l_s(const QString &stationHydro, QDate date) const
{
    const Bassin &bassin = m_bassins.at(stationHydro);
    const double debit = bassin.superficie_km2 * bassin.hydrologie->jour(date).debit_l_s_km2;
    return arrondir(debit, debit < 100 ? 1 : 0); // a gauge reads three figures
}

QList<QDate> Campagnes::dates(const Campagne &campagne) const
{
    if (campagne.jour == "pluie")
        return datesDePluie(campagne);
    QList<QDate> resultat;
    for (QDate mois(campagne.debut.year(), campagne.debut.month(), 1); mois <= campagne.fin;
         mois = mois.addMonths(1)) {
        const QDate date = jourOuvre(mois.addDays(campagne.jour.toInt() - 1));
        if (moisVoulu(campagne.mois, mois.month()) && date >= campagne.debut && date <= campagne.fin)
            resultat << date;
    }
    return resultat;
}

QList<QDate> Campagnes::datesDePluie(const Campagne &campagne) const
{
    QList<QDate> resultat;
    const Hydrologie &ciel = *m_bassins.at(m_rivieres.at(campagne.station).stationHydro).hydrologie;
    for (QDate date = campagne.debut.addDays(1); date <= campagne.fin; date = date.addDays(1)) {
        const bool tropTot = !resultat.isEmpty() && resultat.last().daysTo(date) < JOURS_ENTRE_CRUES;
        if (!tropTot && ciel.jour(date).pluie_mm + ciel.jour(date.addDays(-1)).pluie_mm >= PLUIE_DE_CRUE_MM)
            resultat << date;
    }
    return resultat;
}

Echantillon Campagnes::echantillon(const QString &station, QDate date, const QString &graine) const
{
    const Riviere &riviere = m_rivieres.at(station);
    const Hydrologie &hydrologie = *m_bassins.at(riviere.stationHydro).hydrologie;
    Echantillon e;
    e.date = date;
    e.eau = riviere.eau;
    e.regime = hydrologie.jour(date);
    e.debit_relatif = e.regime.debit_l_s_km2 / hydrologie.module();
    e.debit_m3_s = e.regime.debit_l_s_km2 * riviere.superficie_km2 / 1000.0;
    e.graine = graine;
    return e;
}

Resultat Campagnes::resultat(const Campagne &campagne, const QString &parametre, const QString &fraction,
                             const Echantillon &e) const
{
    const auto molecule = m_molecules.find(parametre);
    const Analyse &analyse = m_analyses.at({parametre, fraction});
    const double trouve = molecule == m_molecules.end() ? concentration(parametre, fraction, e)
                                                        : concentration(parametre, molecule->second, e);
    const bool environnement = parametre == "1301" || parametre == "1420";

    Resultat r;
    r.parametre = parametre;
    r.fraction = fraction;
    r.ld = analyse.ld;
    r.lq = analyse.lq;
    r.ls = analyse.ls;
    r.seuil = seuilEnTexte(analyse.lq);
    r.lieu = analyse.lieu;
    r.methode = analyse.methode;
    r.gestionnaire = campagne.gestionnaire;
    if (!environnement)
        r.laboratoire = campagne.laboratoire;
    r.reseau = campagne.reseaux.value(0);

    Hasard incidents(e.graine + "|incident|" + parametre + fraction);
    if (!environnement && incidents.uniforme() < 0.004) {
        r.remarque = "0";
        r.commentaire_analyse = "Flacon cassé, analyse non réalisée";
        return r;
    }
    // A modern laboratory gives the limit of quantification; the older ones told what they had not detected.
    double valeur = arrondir(trouve, analyse.decimales);
    r.remarque = "1";
    if (!analyse.ld.isNull() && trouve < analyse.ld.toDouble() && e.date.year() < 2012) {
        valeur = analyse.ld.toDouble();
        r.remarque = "2";
    } else if (!analyse.lq.isNull() && valeur < analyse.lq.toDouble()) {
        valeur = analyse.lq.toDouble();
        r.remarque = "10";
    } else if (!analyse.ls.isNull() && trouve > analyse.ls.toDouble()) {
        valeur = analyse.ls.toDouble();
        r.remarque = "3";
    }
    r.valeur = valeur;
    if (campagne.ancienne())
        r.remarque = {};
    if (campagne.jour == "pluie" && e.regime.part_rapide > 0.5)
        r.commentaire_resultat = "Prélèvement en crue";
    else if (incidents.uniforme() < 0.02)
        r.commentaire_resultat = QString::fromUtf8(COMMENTAIRES[incidents.parmi(std::size(COMMENTAIRES))]);
    return r;
}

void Campagnes::ajouter(const Campagne &campagne, QDate date, Prelevement &prelevement) const
{
    for (const QString &reseau : campagne.reseaux)
        if (!prelevement.reseaux.contains(reseau))
            prelevement.reseaux << reseau;
    const QString graine =
        QStringList{campagne.station, date.toString(Qt::ISODate), campagne.preleveur}.join(u'|');
    const Echantillon e = echantillon(campagne.station, date, graine);
    for (const QString &programme : campagne.programmes) {
        const auto parametres = m_programmes.constFind(programme);
        if (parametres == m_programmes.constEnd())
            throw Erreur(0, "Programme inconnu : " + programme);
        for (const auto &[parametre, fraction] : parametres.value())
            prelevement.resultats.push_back(resultat(campagne, parametre, fraction, e));
    }
}

std::vector<Prelevement> Campagnes::prelevements(const QString &fichier) const
{
    // The key orders them as the study numbers them: by date, station, time, sampler.
    std::map<std::tuple<QDate, QString, QString, QString>, Prelevement> trouves;
    const TableCsv table(m_dossier + QLatin1Char('/') + fichier);
    for (int i = 0; i < table.lignes(); ++i) {
        const auto lire = [&](const char *colonne) { return table.texte(i, QLatin1String(colonne)); };
        const Campagne campagne{lire("station"),
                                QDate::fromString(lire("debut"), Qt::ISODate),
                                QDate::fromString(lire("fin"), Qt::ISODate),
                                lire("mois"),
                                lire("jour"),
                                table.valeur(i, "heure"),
                                lire("programme").split(u'+'),
                                table.valeur(i, "protocole"),
                                lire("gestionnaire"),
                                lire("preleveur"),
                                lire("producteur"),
                                lire("laboratoire"),
                                table.liste(i, "reseaux")};
        for (const QDate &date : dates(campagne)) {
            Prelevement &prelevement =
                trouves[{date, campagne.station, campagne.heure.toString(), campagne.preleveur}];
            if (prelevement.station.isEmpty()) {
                prelevement.station = campagne.station;
                prelevement.date = date;
                if (!campagne.heure.isNull())
                    prelevement.heure = campagne.heure.toString() + ":00";
                prelevement.preleveur = campagne.preleveur;
                prelevement.producteur = campagne.producteur;
                prelevement.protocole = campagne.protocole;
            }
            ajouter(campagne, date, prelevement);
        }
    }
    std::vector<Prelevement> resultat;
    resultat.reserve(trouves.size());
    for (auto &[cle, prelevement] : trouves)
        resultat.push_back(std::move(prelevement));
    return resultat;
}
