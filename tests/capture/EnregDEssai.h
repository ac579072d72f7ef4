// The dialogue of a save, played by a test.
#pragma once

#include "BaseDEssai.h"
#include "capture/M_Enreg_Tables.h"
#include "DialogueDEssai.h"

inline QString s(const char *texte)
{
    return QString::fromUtf8(texte);
}

//     EnregDEssai essai;
//     QCOMPARE(essai.enregistrer(e, {Reponse::Oui, Reponse::Non}), Suite::Fini);
//     QCOMPARE(essai.ligne("SELECT * FROM COMMUNE WHERE NumCommune = '22001'"), "22001|Allineuc||22");
struct EnregDEssai {
    BaseDEssai base;
    DialogueDEssai dialogue;

    Suite enregistrer(const Enregistrement &e, const QList<Reponse> &reponses)
    {
        dialogue.messages.clear();
        dialogue.questions.clear();
        dialogue.imprevus.clear();
        dialogue.reponses.clear();
        for (const Reponse reponse : reponses)
            dialogue.reponses.enqueue(reponse);
        return M_Enreg_Tables::enregistrer(base.donnees, dialogue, e);
    }
    // The first row, its columns joined; "NULL" for null; empty where there is none.
    QString ligne(const char *sql) const
    {
        Requete r = base.donnees.executer(QString::fromUtf8(sql));
        if (!r.suivant())
            return {};
        QStringList textes;
        for (int i = 0; i < r.colonnes().size(); ++i)
            textes << montrer(r.valeur(i));
        return textes.join(u'|');
    }
    // The first column of every row.
    QStringList colonne(const char *sql) const
    {
        QStringList textes;
        Requete r = base.donnees.executer(QString::fromUtf8(sql));
        while (r.suivant())
            textes << montrer(r.valeur(0));
        return textes;
    }
    static QString montrer(const QVariant &valeur)
    {
        if (valeur.isNull())
            return QStringLiteral("NULL");
        return valeur.typeId() == QMetaType::Double ? QString::number(valeur.toDouble(), 'g', 12)
                                                    : valeur.toString();
    }
    // Titles of the questions asked, in order.
    QStringList titres() const
    {
        QStringList titres;
        for (const QuestionDEssai &question : dialogue.questions)
            titres << question.titre;
        return titres;
    }
};
