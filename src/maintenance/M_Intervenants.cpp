#include "maintenance/M_Intervenants.h"

#include "database/DataEnvironment1.h"
#include "workbook/Tableur.h"
#include "workbook/TexteCellule.h"

#include <QCollator>
#include <QHash>

namespace
{
QString recit(const M_Intervenants::Correspondance &paire, const QString &suite)
{
    return paire.ancien + QStringLiteral(" -> ") + paire.nouveau + QStringLiteral(" : ") + suite;
}

QList<M_Intervenants::Correspondance> toutesLesPaires(const DataEnvironment1 &donnees)
{
    QList<M_Intervenants::Correspondance> paires;
    Requete r = donnees.executer(
        QStringLiteral("SELECT CodeSandreAncien, CodeSiretNouveau FROM CORRESP_INTERVENANT"));
    while (r.suivant())
        paires.append({r.texte(0), r.texte(1)});
    return paires;
}
} // namespace

QList<M_Intervenants::Correspondance> M_Intervenants::lireCorrespondances(Tableur &tableur,
                                                                          const QString &fichier)
{
    const auto classeur = tableur.ouvrir(fichier, true);
    const Feuille feuille = classeur->feuille(QStringLiteral("IMPORT_MAJ_INTERVENANTS"));
    QList<Correspondance> paires;
    const int derniere = feuille.derniereLigne();
    if (derniere < 2)
        return paires;
    const Valeurs lignes = feuille.plage(2, 1, derniere, 2).valeurs();
    for (const QVector<QVariant> &ligne : lignes) {
        const Correspondance paire{texteCellule(ligne[0]).trimmed(), texteCellule(ligne[1]).trimmed()};
        if (paire.ancien.isEmpty())
            break;
        paires.append(paire);
    }
    return paires;
}

int M_Intervenants::importer(const DataEnvironment1 &donnees, const QList<Correspondance> &paires,
                             bool ecraser, const std::function<void(const QString &)> &journal)
{
    int enregistrees = 0;
    for (const Correspondance &paire : paires) {
        if (paire.nouveau.isEmpty() || paire.ancien.size() > LONGUEUR_CODE ||
            paire.nouveau.size() > LONGUEUR_CODE) {
            const QString cause = paire.nouveau.isEmpty() ? QStringLiteral("le nouveau code est vide")
                                                          : QStringLiteral("un code dépasse 17 caractères");
            journal(QStringLiteral("Correspondance code Sandre Intervenant ") +
                    recit(paire, QStringLiteral("pas importée, ") + cause));
            continue;
        }
        Requete existe = donnees.executer(
            QStringLiteral("SELECT 1 FROM CORRESP_INTERVENANT WHERE CodeSandreAncien = ?"), {paire.ancien});
        const bool connue = existe.suivant();
        existe.finir();
        if (connue && !ecraser) {
            journal(QStringLiteral("Correspondance existante pour le code Sandre Intervenant ") +
                    recit(paire, QStringLiteral("pas importée")));
            continue;
        }
        if (connue) {
            donnees.executer(
                QStringLiteral(
                    "UPDATE CORRESP_INTERVENANT SET CodeSiretNouveau = ? WHERE CodeSandreAncien = ?"),
                {paire.nouveau, paire.ancien});
            journal(QStringLiteral("Correspondance existante pour le code Sandre Intervenant ") +
                    recit(paire, QStringLiteral("remplacée")));
        } else {
            donnees.executer(
                QStringLiteral(
                    "INSERT INTO CORRESP_INTERVENANT (CodeSandreAncien, CodeSiretNouveau) VALUES (?, ?)"),
                {paire.ancien, paire.nouveau});
            journal(QStringLiteral("Correspondance code Sandre Intervenant ") +
                    recit(paire, QStringLiteral("créée")));
        }
        ++enregistrees;
    }
    return enregistrees;
}

QList<M_Intervenants::LigneIntervenant> M_Intervenants::lister(const DataEnvironment1 &donnees, Tri tri)
{
    QHash<QString, QString> nouveaux;
    for (const Correspondance &paire : toutesLesPaires(donnees))
        nouveaux.insert(paire.ancien.toCaseFolded(), paire.nouveau);

    QList<LigneIntervenant> lignes;
    Requete r = donnees.executer(QStringLiteral("SELECT CodeSandreInterv, NomInterv FROM INTERVENANT"));
    while (r.suivant())
        lignes.append({r.texte(1), r.texte(0), nouveaux.value(r.texte(0).toCaseFolded())});

    QCollator ordre(QLocale(QLocale::French, QLocale::France));
    ordre.setCaseSensitivity(Qt::CaseInsensitive);
    std::stable_sort(lignes.begin(), lignes.end(), [&](const LigneIntervenant &a, const LigneIntervenant &b) {
        if (tri == Tri::AncienCode)
            return a.code < b.code;
        if (tri == Tri::NouveauCode && a.nouveau != b.nouveau)
            return b.nouveau.isEmpty() || (!a.nouveau.isEmpty() && a.nouveau < b.nouveau);
        return ordre.compare(a.nom, b.nom) < 0;
    });
    return lignes;
}

int M_Intervenants::nombreCorrespondances(const DataEnvironment1 &donnees)
{
    Requete r = donnees.executer(QStringLiteral("SELECT COUNT(*) FROM CORRESP_INTERVENANT"));
    return r.suivant() ? r.valeur(0).toInt() : 0;
}

int M_Intervenants::mettreAJour(const DataEnvironment1 &donnees, const std::function<void(int)> &progres)
{
    static const QStringList ENONCES{
        QStringLiteral("UPDATE MESURE_PHYSICO SET CodeSandreGest = ? WHERE CodeSandreGest = ?"),
        QStringLiteral("UPDATE MESURE_PHYSICO SET CodeSandreLabo = ? WHERE CodeSandreLabo = ?"),
        QStringLiteral("UPDATE PRELEVEMENT SET CodeSandrePrelev = ? WHERE CodeSandrePrelev = ?"),
        QStringLiteral("UPDATE MESURE_PLUVIO SET CodeSandreGest = ? WHERE CodeSandreGest = ?"),
        QStringLiteral("UPDATE StationHydroXGest SET CodeSandreGest = ? WHERE CodeSandreGest = ?"),
        QStringLiteral("UPDATE StationMesureXGest SET CodeSandreGest = ? WHERE CodeSandreGest = ?"),
        QStringLiteral("UPDATE StationPluvioXGest SET CodeSandreGest = ? WHERE CodeSandreGest = ?")};
    int regroupes = 0;
    int position = 0;
    for (const Correspondance &paire : toutesLesPaires(donnees)) {
        progres(++position);
        if (paire.ancien == paire.nouveau)
            continue;
        const auto existe = [&](const QString &code) {
            return donnees
                .executer(QStringLiteral("SELECT 1 FROM INTERVENANT WHERE CodeSandreInterv = ?"), {code})
                .suivant();
        };
        const bool ancienConnu = existe(paire.ancien);
        const bool nouveauConnu = existe(paire.nouveau);
        // The results' manager is a foreign key: it points to the new code before the body bears it, so the key is
        // checked when the pair is done.
        donnees.executer(QStringLiteral("BEGIN IMMEDIATE"));
        try {
            donnees.executer(QStringLiteral("PRAGMA defer_foreign_keys = ON"));
            for (const QString &enonce : ENONCES)
                donnees.executer(enonce, {paire.nouveau, paire.ancien});
            if (!nouveauConnu)
                donnees.executer(
                    QStringLiteral("UPDATE INTERVENANT SET CodeSandreInterv = ? WHERE CodeSandreInterv = ?"),
                    {paire.nouveau, paire.ancien});
            donnees.executer(QStringLiteral("COMMIT"));
        } catch (...) {
            donnees.executer(QStringLiteral("ROLLBACK"));
            throw;
        }
        if (ancienConnu && nouveauConnu)
            ++regroupes;
    }
    return regroupes;
}
