#include "TableCsv.h"

#include "platform/Erreur.h"

#include <QFile>

TableCsv::TableCsv(const QString &fichier) : m_fichier(fichier)
{
    QFile source(fichier);
    if (!source.open(QIODevice::ReadOnly | QIODevice::Text))
        throw Erreur(0, fichier + " : " + source.errorString());
    const QStringList lignes = QString::fromUtf8(source.readAll()).split(u'\n', Qt::SkipEmptyParts);
    for (qsizetype i = 0; i < lignes.size(); ++i) {
        const QStringList champs = lignes[i].split(u';');
        if (i == 0) {
            for (qsizetype c = 0; c < champs.size(); ++c)
                m_colonnes.insert(champs[c], static_cast<int>(c));
        } else if (champs.size() == m_colonnes.size()) {
            m_lignes.push_back(champs);
        } else {
            throw Erreur(0, QStringLiteral("%1, ligne %2 : %3 champs au lieu de %4")
                                .arg(fichier)
                                .arg(i + 1)
                                .arg(champs.size())
                                .arg(m_colonnes.size()));
        }
    }
}

int TableCsv::position(const QString &colonne) const
{
    const auto trouvee = m_colonnes.constFind(colonne);
    if (trouvee == m_colonnes.constEnd())
        throw Erreur(0, m_fichier + " : colonne absente, " + colonne);
    return trouvee.value();
}

QString TableCsv::texte(int ligne, const QString &colonne) const
{
    return m_lignes.at(static_cast<size_t>(ligne)).at(position(colonne));
}

QVariant TableCsv::valeur(int ligne, const QString &colonne) const
{
    const QString champ = texte(ligne, colonne);
    return champ.isEmpty() ? QVariant() : QVariant(champ);
}

QVariant TableCsv::nombreOuNul(int ligne, const QString &colonne) const
{
    return texte(ligne, colonne).isEmpty() ? QVariant() : QVariant(nombre(ligne, colonne));
}

double TableCsv::nombre(int ligne, const QString &colonne) const
{
    bool lisible = false;
    const double resultat = texte(ligne, colonne).toDouble(&lisible);
    if (!lisible)
        throw Erreur(0, QStringLiteral("%1, ligne %2 : « %3 » n'est pas un nombre")
                            .arg(m_fichier)
                            .arg(ligne + 2)
                            .arg(texte(ligne, colonne)));
    return resultat;
}

QStringList TableCsv::liste(int ligne, const QString &colonne) const
{
    return texte(ligne, colonne).split(u'|', Qt::SkipEmptyParts);
}
