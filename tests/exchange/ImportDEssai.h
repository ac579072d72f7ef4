// An import on a real workbook, for tests: a session on the small study of BaseDEssai, and workbooks made on the spot.
#pragma once

#include "BaseDEssai.h"
#include "DialogueDEssai.h"

#include "exchange/DispositionExcel.h"
#include "exchange/M_Import_OVRA.h"
#include "frame/Session.h"

#include <functional>
#include <memory>
#include <QTemporaryDir>

// Rows of cells by the fields of a layout, under its headers.
template <class Champ> class FeuilleDEssai
{
public:
    using Ligne = QHash<Champ, QVariant>;

    FeuilleDEssai(const DispositionExcel &disposition, const Ligne &modele) : m_modele(modele)
    {
        for (const EnteteExcel &entete : disposition)
            m_entetes << entete.ecritures.constFirst();
    }
    // A row like the model but for these fields.
    FeuilleDEssai &ajouter(const Ligne &differences = {})
    {
        Ligne ligne = m_modele;
        for (auto it = differences.cbegin(); it != differences.cend(); ++it)
            ligne[it.key()] = it.value();
        QVector<QVariant> cellules(m_entetes.size());
        for (auto it = ligne.cbegin(); it != ligne.cend(); ++it)
            cellules[static_cast<qsizetype>(it.key())] = it.value();
        m_lignes << cellules;
        return *this;
    }
    Valeurs valeurs() const
    {
        Valeurs toutes;
        QVector<QVariant> entetes;
        for (const QString &entete : m_entetes)
            entetes << entete;
        toutes << entetes;
        return toutes + m_lignes;
    }

private:
    QStringList m_entetes;
    Ligne m_modele;
    Valeurs m_lignes;
};

using FeuillePhysico = FeuilleDEssai<ChampPhysico>;
using FeuilleHydro = FeuilleDEssai<ChampHydro>;
using FeuillePluvio = FeuilleDEssai<ChampPluvio>;

inline FeuillePhysico feuillePhysico()
{
    using C = ChampPhysico;
    return {dispositionPhysico(),
            {{C::CodeAgence, QStringLiteral("04211940")},
             {C::Nom, QStringLiteral("Pont de l'Ile")},
             {C::Date, QDate(2009, 3, 1)},
             {C::Heure, QTime(14, 30)},
             {C::Parametre, QStringLiteral("Nitrates")},
             {C::Valeur, 38.5},
             {C::CodeRemarque, 1},
             {C::CodeFraction, 23},
             {C::Unite, QStringLiteral("mg(NO3)/L")},
             {C::Protocole, QStringLiteral("Suivi calendaire")},
             {C::Gestionnaire, QStringLiteral("Agence de l'eau")},
             {C::Preleveur, QStringLiteral("Préleveur de l'Ouest")},
             {C::Laboratoire, QStringLiteral("Laboratoire d'Armor")},
             {C::Reseau, QStringLiteral("Réseau d'Armor")}}};
}

inline FeuilleHydro feuilleHydro()
{
    using C = ChampHydro;
    return {dispositionHydro(),
            {{C::TypeDebit, QStringLiteral("QJO")},
             {C::Station, QStringLiteral("J7010610")},
             {C::Date, QDate(2009, 3, 1)},
             {C::Debit, 120.5}}};
}

inline FeuillePluvio feuillePluvio()
{
    using C = ChampPluvio;
    return {dispositionPluvio(),
            {{C::Station, QStringLiteral("35228001")},
             {C::Date, QDate(2009, 3, 1)},
             {C::Mesures, 4.2},
             {C::Gestionnaire, QStringLiteral("Agence de l'eau")}}};
}

// A dialogue that lets a test step in at each row of a run.
class DialogueGuettant : public DialogueDEssai
{
public:
    class ProgressionGuettee : public ProgressionDEssai
    {
    public:
        std::function<void(int ligne)> aChaqueLigne;
        void valeur(int ligne) override
        {
            ProgressionDEssai::valeur(ligne);
            if (aChaqueLigne)
                aChaqueLigne(ligne);
        }
    };
    ProgressionGuettee &progression(FenetreProgression) override { return m_guettee; }

private:
    ProgressionGuettee m_guettee;
};

class ImportDEssai
{
public:
    DialogueGuettant dialogue;
    Session session{dialogue};
    std::unique_ptr<BaseDEssai> base;
    QTemporaryDir dossier;

    ImportSession &import() { return session.importSession; }

    // A new study, a new state of the import, no box shown yet.
    void recommencer()
    {
        session.donnees.liberer();
        base = std::make_unique<BaseDEssai>();
        session.donnees.ouvrir(base->chemin);
        session.importSession = {};
        dialogue.progression(FenetreProgression::FProgress).aChaqueLigne = {};
        oublierLesBoites();
    }
    void oublierLesBoites() { dialogue.messages.clear(); }

    // Writes a workbook, over the one of that name, and gives its path. `textes`: every cell is formatted as text.
    QString ecrire(const Valeurs &valeurs, const QString &nom = QStringLiteral("mesures.xls"),
                   bool textes = false)
    {
        const QString chemin = dossier.filePath(nom);
        const auto classeur = session.tableur.ajouter();
        const int lignes = static_cast<int>(valeurs.size());
        const int colonnes = lignes == 0 ? 0 : static_cast<int>(valeurs.first().size());
        if (lignes > 0) {
            Plage plage = classeur->feuille(1).plage(1, 1, lignes, colonnes);
            if (textes)
                plage.formatNombre(QStringLiteral("@"));
            plage.ecrire(valeurs);
        }
        classeur->enregistrerSous(chemin);
        return chemin;
    }

    // What choosing this file in the menu does before the run.
    void choisir(const QString &chemin)
    {
        import().commencer(chemin, TypeImport::Physico);
        oublierLesBoites();
    }

    // Title and text of the only box shown since the file was chosen; a list of them all otherwise.
    QString boite() const
    {
        QStringList toutes;
        for (const BoiteDEssai &b : dialogue.messages)
            toutes << b.titre + QStringLiteral(" | ") + b.texte;
        return toutes.join(QStringLiteral(" // "));
    }

    QVariant valeur(const QString &sql) const { return base->valeur(sql); }
    int compter(const QString &table) const { return base->compter(table); }
};
