// The tables of facts beside this program: UTF-8, one header row, semicolons, no quoting.
#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <vector>

// A whole table in memory. A missing file, a missing column or a row of another length is an Erreur that names the
// file and the line.
//
//     const TableCsv unites(dossier + "/unites.csv");
//     for (int i = 0; i < unites.lignes(); ++i)
//         symboles << unites.texte(i, "symbole");
class TableCsv
{
public:
    explicit TableCsv(const QString &fichier);

    int lignes() const { return static_cast<int>(m_lignes.size()); }
    QString texte(int ligne, const QString &colonne) const;
    // The field as a text, null where it is empty.
    QVariant valeur(int ligne, const QString &colonne) const;
    // The field as a number with a decimal point, null where it is empty.
    QVariant nombreOuNul(int ligne, const QString &colonne) const;
    // The same where a number must stand.
    double nombre(int ligne, const QString &colonne) const;
    // The parts of a field separated by bars; none where it is empty.
    QStringList liste(int ligne, const QString &colonne) const;

private:
    int position(const QString &colonne) const;

    QString m_fichier;
    QHash<QString, int> m_colonnes;
    std::vector<QStringList> m_lignes;
};
