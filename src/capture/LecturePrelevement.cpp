#include "capture/LecturePrelevement.h"

#include "capture/ListesPrelevement.h"
#include "database/DataEnvironment1.h"
#include "database/M_Referentiels.h"
#include "database/M_Reseaux.h"
#include "database/M_Sandrification.h"
#include "database/Transaction.h"

#include <QLocale>

namespace
{
// The rows of Mesure_PC or Mesure_PS of one key, by way of the index of samplings.
QString source(FamillePrelevement famille, const ClePrelevement &cle, const char16_t *colonnes)
{
    QString sql = QStringLiteral("SELECT %1 FROM PRELEVEMENT "
                                 "INNER JOIN MESURE_PHYSICO ON MESURE_PHYSICO.NumPrel = PRELEVEMENT.NumPrel "
                                 "INNER JOIN PARAMETRE ON PARAMETRE.CodeParam = MESURE_PHYSICO.CodeParam "
                                 "WHERE CodeGroupeParam %2 AND CodeSandreStationM = ? AND DatePrel = ?")
                      .arg(QString::fromUtf16(colonnes), ListesPrelevement::condition(famille));
    if (!cle.heure.isEmpty())
        sql += QStringLiteral(" AND HeurePrel = ?");
    return sql;
}

QVariantList valeurs(const ClePrelevement &cle)
{
    QVariantList liste{cle.station, cle.date};
    if (!cle.heure.isEmpty())
        liste << cle.heure;
    return liste;
}

struct ReseauxPrelevement {
    QHash<qint64, QString> textes;
    QHash<qint64, QHash<QString, QStringList>> codes;
};

// The networks of the day's samplings of a station.
ReseauxPrelevement lireReseaux(const DataEnvironment1 &donnees, const ClePrelevement &cle)
{
    const QString sql = QStringLiteral(
        "SELECT PRELEVEMENT.NumPrel AS NumPrel, PRELEVEMENTRSX.CodeReseau AS CodeReseau FROM PRELEVEMENT "
        "LEFT JOIN PRELEVEMENTRSX ON PRELEVEMENTRSX.NumPrel = PRELEVEMENT.NumPrel "
        "WHERE CodeSandreStationM = ? AND DatePrel = ? ORDER BY PRELEVEMENT.NumPrel, PRELEVEMENTRSX.rowid");
    ReseauxPrelevement lus;
    {
        Transaction ensemble(donnees.Connect_Bdd());
        Requete appartenances = donnees.executer(sql, {cle.station, cle.date});
        M_Reseaux::ReseauxMesures(donnees, appartenances);
        appartenances.finir();
        ensemble.valider();
    }
    Requete textes = donnees.executer(QStringLiteral("SELECT NumPrel, CodeReseau FROM Temp_mesures_reseaux"));
    while (textes.suivant())
        lus.textes.insert(textes.valeur(0).toLongLong(), textes.texte(1));
    Requete appartenances = donnees.executer(sql, {cle.station, cle.date});
    while (appartenances.suivant()) {
        const QString code = appartenances.texte(1);
        const QString label = M_Referentiels::LibelleReseauDeCode(donnees, code);
        if (!label.isEmpty())
            lus.codes[appartenances.valeur(0).toLongLong()][label] << code;
    }
    return lus;
}

// Name of an actor in one of the roles of the one table of actors.
QString nomIntervenant(const DataEnvironment1 &donnees, const QString &code)
{
    return M_Referentiels::NomGestionnaire(donnees, code);
}

TextesLigne montrer(const DataEnvironment1 &donnees, const Requete &r, const SourceLigne &s,
                    const QString &reseaux)
{
    TextesLigne t;
    t.parametre = r.texte(QStringLiteral("NomParam"));
    t.resultat = LecturePrelevement::nombre(s.resultat);
    const QString unite = r.texte(QStringLiteral("CodeUnite"));
    t.unite = unite.isEmpty() ? QString() : M_Referentiels::SymboleUniteDeCode(donnees, unite);
    t.remarque = s.remarque.toString();
    t.fraction = s.fraction.toString();
    t.methode = s.methode.toString();
    t.preleveur = nomIntervenant(donnees, s.codePreleveur);
    t.laboratoire = nomIntervenant(donnees, s.codeLaboratoire.toString());
    t.gestionnaire = nomIntervenant(donnees, s.codeGestionnaire.toString());
    t.reseau = reseaux;
    t.lieu = M_Sandrification::LibelleLieuAnalyse(s.lieu.toString());
    t.commentaireAnalyse = s.commentaireAnalyse.toString();
    t.commentaireResultat = s.commentaireResultat.toString();
    t.seuil = s.seuil.toString();
    t.protocole = M_Sandrification::LibelleProtocole(r.texte(QStringLiteral("Protocole")));
    t.ld = LecturePrelevement::nombre(s.ld);
    t.lq = LecturePrelevement::nombre(s.lq);
    t.ls = LecturePrelevement::nombre(s.ls);
    return t;
}
} // namespace

QString LecturePrelevement::nombre(const QVariant &valeur)
{
    if (valeur.isNull())
        return {};
    QLocale locale = QLocale::c();
    return locale.toString(valeur.toDouble(), 'f', QLocale::FloatingPointShortest).replace(u'.', u',');
}

bool LecturePrelevement::existe(const DataEnvironment1 &donnees, FamillePrelevement famille,
                                const ClePrelevement &cle)
{
    return donnees.valeur(source(famille, cle, u"1") + QStringLiteral(" LIMIT 1"), valeurs(cle)).isValid();
}

QList<LignePrelevement> LecturePrelevement::lire(const DataEnvironment1 &donnees, FamillePrelevement famille,
                                                 const ClePrelevement &cle)
{
    const ReseauxPrelevement reseaux = lireReseaux(donnees, cle);
    QList<LignePrelevement> lignes;
    Requete r = donnees.executer(
        source(famille, cle,
               u"PRELEVEMENT.NumPrel AS NumPrel, CodeSandrePrelev, Protocole, ResultatAnaPC, LD, LQ, LS, "
               u"CodeRemarqueAnaPC, LieuAnaPC, CommAnaPC, CommResAnaPC, SeuilAnaPC, CodeSandreLabo, "
               u"CodeMethode, CodeSandreGest, Cd_Fraction, MESURE_PHYSICO.CodeParam AS CodeParam, NomParam, "
               u"CodeUnite") +
            QStringLiteral(" ORDER BY NumAnaPC"),
        valeurs(cle));
    while (r.suivant()) {
        // A null column comes with a type, by which it would go back as an empty text.
        const auto valeur = [&r](const char16_t *colonne) {
            QVariant lue = r.valeur(QString::fromUtf16(colonne));
            return lue.isNull() ? QVariant() : lue;
        };
        auto s = std::make_shared<SourceLigne>();
        s->numPrel = valeur(u"NumPrel").toLongLong();
        s->codeParametre = valeur(u"CodeParam").toString();
        s->resultat = valeur(u"ResultatAnaPC");
        s->remarque = valeur(u"CodeRemarqueAnaPC");
        s->fraction = valeur(u"Cd_Fraction");
        s->methode = valeur(u"CodeMethode");
        s->codePreleveur = valeur(u"CodeSandrePrelev").toString();
        s->codeLaboratoire = valeur(u"CodeSandreLabo");
        s->codeGestionnaire = valeur(u"CodeSandreGest");
        s->lieu = valeur(u"LieuAnaPC");
        s->commentaireAnalyse = valeur(u"CommAnaPC");
        s->commentaireResultat = valeur(u"CommResAnaPC");
        s->seuil = valeur(u"SeuilAnaPC");
        s->ld = valeur(u"LD");
        s->lq = valeur(u"LQ");
        s->ls = valeur(u"LS");
        s->reseaux = reseaux.codes.value(s->numPrel);
        s->textes = montrer(donnees, r, *s, reseaux.textes.value(s->numPrel));
        LignePrelevement ligne;
        static_cast<TextesLigne &>(ligne) = s->textes;
        ligne.source = s;
        lignes << ligne;
    }
    return lignes;
}
