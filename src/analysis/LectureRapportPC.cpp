#include "analysis/LectureRapportPC.h"

#include "analysis/M_Concentration_OVRA.h"
#include "database/DataEnvironment1.h"
#include "database/M_Referentiels.h"
#include "database/M_Sandrification.h"
#include "platform/VersNombre.h"

namespace
{
// What stands for a null in some texts that came from elsewhere.
constexpr QStringView TEXTE_NUL = u"Null";

// Rows of a named command of which a column has this value.
Requete chercher(const DataEnvironment1 &donnees, const QString &commande, const QString &colonne,
                 const QVariant &valeur)
{
    const QString source = DataEnvironment1::source(commande);
    return donnees.executer(QStringLiteral("SELECT * FROM (%1) WHERE %2 = ?").arg(source, colonne), {valeur});
}

QString saufNul(const QString &texte)
{
    return texte == TEXTE_NUL ? QString() : texte;
}

void lireStation(const DataEnvironment1 &donnees, const DemandeRapport &demande, EnTeteRapport &enTete,
                 QVariant &numeroBassin)
{
    enTete.codeAffiche = demande.codeStation;
    Requete station = chercher(donnees, QStringLiteral("Station_Qualité"),
                               QStringLiteral("CodeSandreStationM"), demande.codeStation);
    if (!station.suivant())
        return;
    enTete.riviere = saufNul(station.texte(QStringLiteral("RiviereStationM")));
    enTete.station = saufNul(station.texte(QStringLiteral("NomStationM")));
    const QString usuel = saufNul(station.texte(QStringLiteral("CodeUsuelStationM")));
    if (demande.afficherCodeUsuel && !usuel.isEmpty())
        enTete.codeAffiche = usuel;
    numeroBassin = station.valeur(QStringLiteral("NumBV"));
    Requete bassin =
        chercher(donnees, QStringLiteral("BassinVersant"), QStringLiteral("NumBV"), numeroBassin);
    if (bassin.suivant())
        enTete.bassin = bassin.texte(QStringLiteral("NomBV"));
}

// The named command knows the parameters that have a unit; the others are offered by the screen all the same.
QString codeParametre(const DataEnvironment1 &donnees, const QString &nom)
{
    const QString code = M_Referentiels::CodeParametre(donnees, nom);
    return code.isEmpty()
               ? donnees.valeur(QStringLiteral("SELECT CodeParam FROM PARAMETRE WHERE NomParam = ?"), {nom})
                     .toString()
               : code;
}

void lireParametre(const DataEnvironment1 &donnees, const DemandeRapport &demande, EnTeteRapport &enTete)
{
    enTete.parametre = demande.parametre;
    enTete.unite = UNITE_NON_DEFINIE.toString();
    enTete.codeParametre = codeParametre(donnees, demande.parametre);
    if (enTete.codeParametre == M_Concentration_OVRA::CARBONE_ORGANIQUE) {
        const QString separateur = QStringLiteral(" - ");
        enTete.codeFraction = demande.fraction.section(separateur, 0, 0).trimmed();
        enTete.libelleFraction = demande.fraction.section(separateur, 1);
        if (!enTete.libelleFraction.isEmpty())
            enTete.parametre = enTete.libelleFraction + separateur + demande.parametre;
    }
    Requete parametre =
        chercher(donnees, QStringLiteral("Parametre"), QStringLiteral("CodeParam"), enTete.codeParametre);
    if (!parametre.suivant() || parametre.texte(QStringLiteral("CodeUnite")).isEmpty())
        return;
    const QString symbole = parametre.texte(QStringLiteral("SymboleUnite"));
    if (!symbole.isEmpty())
        enTete.unite = symbole;
}

// An objective of 0 is none.
std::optional<double> objectif(const QVariant &valeur)
{
    const double nombre = valeur.isNull() ? 0 : VersNombre(valeur);
    return nombre == 0 ? std::nullopt : std::optional<double>(nombre);
}

void lireObjectifs(const DataEnvironment1 &donnees, const QVariant &numeroBassin, EnTeteRapport &enTete)
{
    QString sql = QStringLiteral("SELECT MoyObjf, MaxObjf FROM OBJECTIF WHERE NumBV = ? AND CodeParam = ?");
    QVariantList parametres{numeroBassin, enTete.codeParametre};
    if (!enTete.codeFraction.isEmpty()) {
        sql += QStringLiteral(" AND CD_FRACTION = ?");
        parametres << enTete.codeFraction;
    }
    Requete requete = donnees.executer(sql, parametres);
    if (!requete.suivant())
        return;
    enTete.limites.objectifMoyen = objectif(requete.valeur(QStringLiteral("MoyObjf")));
    enTete.limites.objectifMaximum = objectif(requete.valeur(QStringLiteral("MaxObjf")));
}

// The grid holds for organic carbon in one fraction only, and for it when no fraction is told.
void lireGrille(const DataEnvironment1 &donnees, EnTeteRapport &enTete)
{
    if (!enTete.codeFraction.isEmpty() && enTete.codeFraction != M_Concentration_OVRA::FRACTION_DE_LA_GRILLE)
        return;
    Requete grille =
        chercher(donnees, QStringLiteral("GrilleSEQ"), QStringLiteral("CodeParam"), enTete.codeParametre);
    if (!grille.suivant())
        return;
    const auto borne = [&grille](const char *colonne) {
        return VersNombre(grille.valeur(QString::fromLatin1(colonne)));
    };
    enTete.grille =
        GrilleSEQ{borne("Valeur1SEQ"), borne("Valeur2SEQ"), borne("Valeur3SEQ"), borne("Valeur4SEQ")};
}

// CROSS JOIN keeps the order of the tables: the station's samplings of the period first, then their results, however
// large the base. PARAMETRE is there to leave the pesticides out.
QString instructionMesures(const DemandeRapport &demande, const EnTeteRapport &enTete)
{
    QString sql =
        QStringLiteral("SELECT DatePrel, ResultatAnaPC, CodeRemarqueAnaPC, CodeSandreGest, CommResAnaPC "
                       "FROM PRELEVEMENT CROSS JOIN MESURE_PHYSICO "
                       "ON MESURE_PHYSICO.NumPrel = PRELEVEMENT.NumPrel "
                       "CROSS JOIN PARAMETRE ON PARAMETRE.CodeParam = MESURE_PHYSICO.CodeParam "
                       "WHERE DatePrel >= ? AND DatePrel <= ? AND CodeSandreStationM = ? "
                       "AND MESURE_PHYSICO.CodeParam = ? AND CodeGroupeParam <> 'PS'");
    if (!enTete.codeFraction.isEmpty())
        sql += QStringLiteral(" AND Cd_Fraction = ?");
    if (!demande.protocole.isEmpty())
        sql += QStringLiteral(" AND Protocole = ?");
    if (!demande.reseaux.isEmpty()) {
        QStringList marques(demande.reseaux.size(), QStringLiteral("?"));
        // A result counts once, in however many of the networks its sampling is.
        sql += QStringLiteral(" AND EXISTS (SELECT 1 FROM PRELEVEMENTRSX "
                              "WHERE PRELEVEMENTRSX.NumPrel = PRELEVEMENT.NumPrel AND CodeReseau IN (%1))")
                   .arg(marques.join(QStringLiteral(", ")));
    }
    return sql + QStringLiteral(" ORDER BY DatePrel, HeurePrel, NumAnaPC");
}

QVariantList parametresMesures(const DemandeRapport &demande, const EnTeteRapport &enTete)
{
    QVariantList parametres{demande.codeStation, enTete.codeParametre};
    if (!enTete.codeFraction.isEmpty())
        parametres << enTete.codeFraction;
    if (!demande.protocole.isEmpty())
        parametres << QString::number(M_Sandrification::CodeProtocole(demande.protocole));
    for (const QString &reseau : demande.reseaux)
        parametres << reseau;
    return parametres;
}
} // namespace

EnTeteRapport lireEnTete(const DataEnvironment1 &donnees, const DemandeRapport &demande)
{
    EnTeteRapport enTete;
    QVariant numeroBassin;
    lireStation(donnees, demande, enTete, numeroBassin);
    lireParametre(donnees, demande, enTete);
    lireObjectifs(donnees, numeroBassin, enTete);
    lireGrille(donnees, enTete);
    enTete.limites.seuil = demande.seuil;
    return enTete;
}

QStringList lireNomsGestionnaires(const DataEnvironment1 &donnees, const QStringList &codes)
{
    QStringList noms;
    for (const QString &code : codes) {
        const QString nom = M_Referentiels::NomGestionnaire(donnees, code);
        if (!nom.isEmpty())
            noms << nom;
    }
    return noms;
}

qint64 compterResultatsDeLaBase(const DataEnvironment1 &donnees)
{
    // The command joins every result with its sampling and its parameter, a third of a second for a million of them. The
    // index on the parameters alone counts the results; those, hardly ever any, whose sampling is gone are then taken off.
    const auto compter = [&donnees](const QString &sql) { return donnees.valeur(sql).toLongLong(); };
    const qint64 resultats = compter(
        QStringLiteral("SELECT count(*) FROM PARAMETRE CROSS JOIN MESURE_PHYSICO "
                       "ON MESURE_PHYSICO.CodeParam = PARAMETRE.CodeParam WHERE CodeGroupeParam <> 'PS'"));
    const QString orphelins =
        QStringLiteral("SELECT count(*) FROM MESURE_PHYSICO CROSS JOIN PARAMETRE "
                       "ON PARAMETRE.CodeParam = MESURE_PHYSICO.CodeParam WHERE CodeGroupeParam <> 'PS' "
                       "AND (NumPrel IS NULL OR ");
    // Sampling numbers without a hole are known by their two ends.
    const bool sansTrou = compter(QStringLiteral("SELECT (SELECT count(*) FROM PRELEVEMENT) = "
                                                 "(SELECT max(NumPrel) FROM PRELEVEMENT) - "
                                                 "(SELECT min(NumPrel) FROM PRELEVEMENT) + 1")) != 0;
    if (sansTrou)
        return resultats -
               compter(orphelins + QStringLiteral("NumPrel < (SELECT min(NumPrel) FROM PRELEVEMENT) "
                                                  "OR NumPrel > (SELECT max(NumPrel) FROM PRELEVEMENT))"));
    return resultats -
           compter(orphelins + QStringLiteral("NumPrel NOT IN (SELECT NumPrel FROM PRELEVEMENT))"));
}

LecteurMesuresPC::LecteurMesuresPC(const DataEnvironment1 &donnees, const DemandeRapport &demande,
                                   const EnTeteRapport &enTete)
    : m_parametres(parametresMesures(demande, enTete)),
      m_mesures(donnees.Connect_Bdd(), instructionMesures(demande, enTete)),
      m_debits(donnees.Connect_Bdd(), QStringLiteral("SELECT DebitJourMesureHM FROM MESURE_HYDRO "
                                                     "WHERE CodeStationHM = ? AND DateMesureHM = ? "
                                                     "AND DebitJourMesureHM IS NOT NULL")),
      m_stationDebit(demande.stationDebit)
{
}

AnneeLue LecteurMesuresPC::lire(const Annee &annee, const std::function<void()> &parEnregistrement)
{
    AnneeLue lue;
    m_mesures.executer(QVariantList{annee.debut, annee.fin} + m_parametres);
    while (m_mesures.suivant()) {
        EnregistrementPC enregistrement;
        enregistrement.date = m_mesures.date(QStringLiteral("DatePrel"));
        enregistrement.valeur = VersNombre(m_mesures.valeur(QStringLiteral("ResultatAnaPC")));
        enregistrement.codeRemarque = m_mesures.texte(QStringLiteral("CodeRemarqueAnaPC"));
        enregistrement.gestionnaire = m_mesures.texte(QStringLiteral("CodeSandreGest"));
        enregistrement.commentaire = m_mesures.texte(QStringLiteral("CommResAnaPC"));
        if (!m_stationDebit.isEmpty() && enregistrement.date.isValid() &&
            !lue.debits.contains(enregistrement.date))
            lue.debits.insert(enregistrement.date, lireDebits(enregistrement.date));
        lue.enregistrements << enregistrement;
        parEnregistrement();
    }
    m_mesures.finir();
    return lue;
}

QList<double> LecteurMesuresPC::lireDebits(QDate jour)
{
    QList<double> debits;
    m_debits.executer({m_stationDebit, jour});
    while (m_debits.suivant())
        debits << VersNombre(m_debits.valeur(0));
    m_debits.finir();
    return debits;
}
