#include "Banc.h"

#include "Hasard.h"
#include "Hydrologie.h"
#include "Insertion.h"
#include "platform/Arrondi.h"
#include "TableCsv.h"

#include <cmath>
#include <QHash>

namespace
{
constexpr int STATIONS = 100;
constexpr int MESURES_SUIVIES = 120;
constexpr int RESULTATS_PAR_PRELEVEMENT = 25;
const char *const STATION_SUIVIE = "04999010";
const char *const STATION_HYDRO = "J7999910";
const char *const BASSIN = "Le Banc d'essai";
const char *const GESTIONNAIRES[] = {"Gestionnaire d'essai nord", "Gestionnaire d'essai sud"};
const char *const PRELEVEURS[] = {"Préleveur d'essai A", "Préleveur d'essai B"};
const char *const LABORATOIRES[] = {"Laboratoire d'essai A", "Laboratoire d'essai B",
                                    "Laboratoire d'essai C"};
const char *const RESEAUX[] = {"Réseau d'essai principal", "Réseau d'essai complémentaire"};

QString codeIntervenant(int rang)
{
    return QStringLiteral("9991000%1").arg(rang, 7, 10, QLatin1Char('0'));
}

QString codeReseau(int rang)
{
    return QStringLiteral("049900010%1").arg(rang);
}

QString codeStation(int rang)
{
    return QStringLiteral("0488%1").arg(rang, 4, 10, QLatin1Char('0'));
}

QString nomStation(int rang)
{
    return QStringLiteral("Ruisseau d'essai n° %1").arg(rang);
}

QStringList intervenants()
{
    QStringList noms;
    for (const auto *nom : GESTIONNAIRES)
        noms << nom;
    for (const auto *nom : PRELEVEURS)
        noms << nom;
    for (const auto *nom : LABORATOIRES)
        noms << nom;
    return noms;
}

// Where each role begins in `intervenants`.
constexpr int PREMIER_PRELEVEUR = 2;
constexpr int PREMIER_LABORATOIRE = 4;

void remplirStations(const QSqlDatabase &base)
{
    Insertion station(base, "STATION_QUALITE",
                      {"CodeSandreStationM", "CodeUsuelStationM", "NomStationM", "RiviereStationM",
                       "CodeReseau", "SituationStationM", "NumBV"});
    Insertion point(base, "LOCALISATION", {"CodeSandreStationM", "CdPoint", "CdSupport"});
    const auto ajouter = [&](const QString &code, const QString &usuel, const QString &nom) {
        station.ligne({code, usuel, nom, "Ruisseau d'essai", codeReseau(0), "Bilan", 1});
        point.ligne({code, "031", "3"});
    };
    ajouter(STATION_SUIVIE, "SUIVI", "Station suivie");
    for (int i = 0; i < STATIONS; ++i)
        ajouter(codeStation(i), QStringLiteral("ESSAI-%1").arg(i), nomStation(i));
    Insertion(base, "Rattachement_hydro_ mesure", {"CodeStationHM", "CodeSandreStationM"})
        .ligne({STATION_HYDRO, STATION_SUIVIE});
}

void remplirDebits(const QSqlDatabase &base)
{
    Insertion(base, "STATION_HYDRO",
              {"CodeStationHM", "CodeSandreStationHM", "IntituleStationHM", "SurfReelStationHM", "NumBV"})
        .ligne({STATION_HYDRO, STATION_HYDRO, "Limnigraphe d'essai", 176.9, 1});
    Insertion debit(base, "MESURE_HYDRO", {"CodeStationHM", "DateMesureHM", "DebitJourMesureHM"});
    const QDate fin(2017, 12, 31);
    const Hydrologie hydrologie({2008, 1, 1}, fin, 0.4, "banc");
    for (QDate date(2008, 1, 1); date <= fin; date = date.addDays(1))
        debit.ligne({STATION_HYDRO, date.toString(Qt::ISODate),
                     arrondir(176.9 * hydrologie.jour(date).debit_l_s_km2, 0)});
}

// Writes samplings and results, numbered as they come.
class Ecriture
{
public:
    explicit Ecriture(const QSqlDatabase &base)
        : m_prelevement(base, "PRELEVEMENT",
                        {"NumPrel", "CodeSandreStationM", "CdPoint", "DatePrel", "HeurePrel", "CdSupport",
                         "CodeSandrePrelev", "CodeSandreProd", "Protocole"}),
          m_reseau(base, "PRELEVEMENTRSX", {"NumPrel", "CodeReseau"}),
          m_mesure(base, "MESURE_PHYSICO",
                   {"NumPrel", "CodeParam", "ResultatAnaPC", "CodeRemarqueAnaPC", "CodeSandreLabo",
                    "CodeSandreGest", "Cd_Fraction"})
    {
    }

    void prelevement(const QString &station, QDate date, const QString &heure, int tirage)
    {
        ++m_numero;
        m_prelevement.ligne({m_numero, station, "031", date.toString(Qt::ISODate), heure, "3",
                             codeIntervenant(PREMIER_PRELEVEUR + tirage % 2), "0",
                             QString::number(1 + tirage % 2)});
        m_reseau.ligne({m_numero, codeReseau(tirage % 2)});
    }

    void mesure(const QString &parametre, double valeur, int tirage)
    {
        m_mesure.ligne({m_numero, parametre, valeur, tirage % 10 == 0 ? "10" : "1",
                        codeIntervenant(PREMIER_LABORATOIRE + tirage % 3), codeIntervenant(tirage % 2),
                        "23"});
    }

private:
    Insertion m_prelevement;
    Insertion m_reseau;
    Insertion m_mesure;
    int m_numero = 0;
};
} // namespace

Banc::Banc(const QString &donnees)
{
    const TableCsv unites(donnees + "/referentiel/unites.csv");
    QHash<QString, QString> symboles;
    for (int i = 0; i < unites.lignes(); ++i)
        symboles.insert(unites.texte(i, "code"), unites.texte(i, "symbole"));
    const TableCsv parametres(donnees + "/referentiel/parametres.csv");
    for (int i = 0; i < parametres.lignes(); ++i)
        if (parametres.texte(i, "code") != "1340")
            m_parametres.push_back({parametres.texte(i, "code"), parametres.texte(i, "nom"),
                                    symboles.value(parametres.texte(i, "unite"))});
}

void Banc::remplirElements(const QSqlDatabase &base) const
{
    Insertion(base, "BASSIN_VERSANT", {"NumBV", "NomBV", "SuperfBV"}).ligne({1, BASSIN, 176.9});
    Insertion(base, "LIEU_BASSIN_VERSANT", {"Bassin_versant"}).ligne({BASSIN});
    Insertion(base, "OBJECTIF", {"NumBV", "CodeParam", "CD_FRACTION", "MoyObjf", "MaxObjf"})
        .ligne({1, "1340", "0", 25, 35});
    Insertion intervenant(base, "INTERVENANT", {"CodeSandreInterv", "NomInterv", "StatutInterv"});
    const QStringList noms = intervenants();
    for (qsizetype i = 0; i < noms.size(); ++i)
        intervenant.ligne({codeIntervenant(static_cast<int>(i)), noms[i], "Validé"});
    Insertion reseau(base, "RESEAU_MESURE", {"CodeReseau", "LibelleReseau"});
    for (int i = 0; i < 2; ++i)
        reseau.ligne({codeReseau(i), RESEAUX[i]});
    remplirStations(base);
    remplirDebits(base);
}

void Banc::remplirResultats(const QSqlDatabase &base, int nombre) const
{
    Ecriture ecriture(base);
    for (int i = 0; i < MESURES_SUIVIES; ++i) {
        const QDate date = QDate(2008, 1, 8).addMonths(i);
        ecriture.prelevement(STATION_SUIVIE, date, "09:20:00", 0);
        ecriture.mesure(
            "1340",
            arrondir(25 + 12 * saison(date, 30) + Hasard(QStringLiteral("banc|%1").arg(i)).normale(), 1),
            1 + i % 9);
    }
    // Each of the other stations in turn, every nine days over ten years, then again at later hours.
    Hasard hasard("banc");
    int faits = MESURES_SUIVIES;
    for (int p = 0; faits < nombre; ++p) {
        const QDate date = QDate(2008, 1, 1).addDays(p / STATIONS * 9 % 3653);
        const QString heure =
            QStringLiteral("%1:30:00").arg(8 + p / STATIONS * 9 / 3653 % 12, 2, 10, QLatin1Char('0'));
        ecriture.prelevement(codeStation(p % STATIONS), date, heure, p);
        for (int r = 0; r < RESULTATS_PAR_PRELEVEMENT && faits < nombre; ++r, ++faits) {
            const Parametre &parametre =
                m_parametres[static_cast<size_t>(p * RESULTATS_PAR_PRELEVEMENT + r) % m_parametres.size()];
            ecriture.mesure(parametre.code, arrondir(10 * hasard.facteur(0.8), 2), p + r);
        }
    }
}

void Banc::lignes(int nombre, const std::function<void(const Ligne &)> &recevoir) const
{
    Hasard hasard("classeur");
    for (int i = 0; i < nombre; ++i) {
        const int p = i / RESULTATS_PAR_PRELEVEMENT;
        const Parametre &parametre = m_parametres[static_cast<size_t>(i) % m_parametres.size()];
        Ligne ligne;
        ligne.codeStation = codeStation(p % STATIONS);
        ligne.nomStation = nomStation(p % STATIONS);
        ligne.date = QDate(2020, 1, 1).addDays(p / STATIONS);
        ligne.heure = QStringLiteral("09:%1").arg(p % 60, 2, 10, QLatin1Char('0'));
        ligne.parametre = parametre.nom;
        ligne.valeur = arrondir(10 * hasard.facteur(0.8), 2);
        ligne.remarque = i % 10 == 0 ? 10 : 1;
        ligne.fraction = i % 2 == 0 ? "23" : "3";
        if (i % 50 == 0)
            ligne.commentaire = "Résultat confirmé";
        ligne.unite = parametre.symbole;
        ligne.seuil = "0,05";
        ligne.protocole = p % 2 == 0 ? "Suivi calendaire" : "Suivi pluie";
        ligne.gestionnaire = GESTIONNAIRES[p % 2];
        ligne.preleveur = PRELEVEURS[p % 2];
        ligne.laboratoire = LABORATOIRES[p % 3];
        ligne.reseau = RESEAUX[p % 2];
        recevoir(ligne);
    }
}
