// The opening of an Access file as the program does it, without the spreadsheet.
#pragma once

#include "DialogueDEssai.h"

#include "database/DataEnvironment1.h"
#include "database/jet/EtapesJet.h"
#include "database/M_Ouvrir_bdd_OVRA.h"
#include "database/M_Structure_2002.h"

#include <QString>

//     OuvertureDEssai essai;
//     QVERIFY(essai.ouvrir(chemin));
//     essai.donnees is open, essai.dialogue has noted the boxes
class OuvertureDEssai
{
public:
    DialogueDEssai dialogue;
    DataEnvironment1 donnees;
    QString versionAccess;
    QString chaineFournisseur;

    bool ouvrir(const QString &fichier)
    {
        Ouverture o{donnees, dialogue, fichier, {}, {}, {}};
        o.etapes.CreerCouleurs = [this] {
            donnees.executer(QStringLiteral(
                "CREATE TABLE COULEURS_GRAPH (ordre INTEGER, R INTEGER, G INTEGER, B INTEGER)"));
        };
        o.etapes.ChargerCouleurs = [] {};
        o.etapes.MettreAJourVersion = [this] { M_Structure_2002::MettreAJourVersion(donnees); };
        o.etapes.TransposerStructure = [this] {
            return M_Structure_2002::TransposerStructure(donnees, {dialogue, {}, {}});
        };
        EtapesJet::brancher(o.etapes, dialogue);
        const bool ouverte = M_Ouvrir_bdd_OVRA::OuvrirBase(o);
        versionAccess = o.VersionAccess;
        chaineFournisseur = o.ChaineFournisseur;
        return ouverte;
    }

    QVariant valeur(const QString &sql) const { return donnees.valeur(sql); }
};
