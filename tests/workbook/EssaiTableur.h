// Ground common to the tests of the hidden instance's life: its own temporary folder, which must be left empty.
#pragma once

#include "workbook/Tableur.h"
#include "workbook/TracesCalc.h"

#include <QTemporaryDir>
#include <QtTest>

class EssaiTableur : public QObject
{
public:
    // The instances put their profile in this folder.
    bool preparer() const { return qputenv("TMPDIR", m_dossier.path().toUtf8()); }
    // What is left there and should not be.
    QString restes() const { return TracesCalc::restes(m_dossier.path(), {}, 3000); }

protected:
    // The words of the ErreurTableur that this throws; empty when it throws none.
    template <class F> static QString echec(F &&appels)
    {
        try {
            appels();
        } catch (const ErreurTableur &e) {
            return e.description();
        }
        return {};
    }
    static void verifierQuElleSert(Tableur &tableur)
    {
        const auto classeur = tableur.ajouter();
        Plage cellule = classeur->feuille(1).cellule(1, 1);
        cellule.ecrire(QStringLiteral("présente"));
        QCOMPARE(cellule.valeur().toString(), QStringLiteral("présente"));
    }

    QTemporaryDir m_dossier;
};
