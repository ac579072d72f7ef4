// A report or chart command with a warm application, and what its template takes alone.
#pragma once

#include "DialogueDEssai.h"
#include "platform/Chemins.h"
#include "platform/Erreur.h"
#include "workbook/CoursRapport.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

class CommandeAuBanc
{
public:
    // The template's file name, as the installation lays it.
    explicit CommandeAuBanc(const QString &modele)
        : m_modele(m_racine.filePath(QStringLiteral("Projet/Modèles/") + modele))
    {
        Chemins::definirRacine(m_racine.path());
        QDir(m_racine.path()).mkpath(QStringLiteral("Projet/Modèles"));
        QFile::copy(QStringLiteral(DOSSIER_CONSTRUCTION "/installation/Projet/Modèles/") + modele, m_modele);
    }

    QString fichier(const QString &nom) const { return m_racine.filePath(nom); }
    Dialogue &dialogue() { return m_dialogue; }

    // Opening, saving and closing the template.
    void modeleSeul()
    {
        const auto classeur = m_tableur.ouvrir(m_modele);
        classeur->enregistrerSous(m_sortie);
        classeur->fermer();
    }

    void executer(const CommandeRapport &commande)
    {
        m_dialogue.fichiers.enqueue(m_sortie);
        CoursRapport cours(m_dialogue, m_tableur, m_dossiers, m_etat);
        if (!cours.executer(commande))
            throw Erreur(0, m_dialogue.messages.isEmpty() ? QString() : m_dialogue.messages.last().texte);
        m_dialogue.messages.clear();
    }

private:
    QTemporaryDir m_racine;
    QString m_modele;
    QString m_sortie = m_racine.filePath(QStringLiteral("produit.xls"));
    Tableur m_tableur;
    DialogueDEssai m_dialogue;
    DossiersRecents m_dossiers;
    EtatRapport m_etat;
};
