#include "database/TableTravail.h"

#include "database/DataEnvironment1.h"
#include "database/Transaction.h"
#include "platform/Erreur.h"

TableTravail::TableTravail(const DataEnvironment1 &donnees, const QString &table,
                           const QList<ColonneTravail> &colonnes, QObject *parent)
    : QAbstractTableModel(parent), m_donnees(donnees), m_table(table), m_colonnes(colonnes)
{
}

void TableTravail::vider()
{
    m_donnees.executer(QStringLiteral("DELETE FROM [%1]").arg(m_table));
    beginResetModel();
    m_lignes.clear();
    m_prochain = -1;
    endResetModel();
}

void TableTravail::relire(const QString &ordre)
{
    m_ordre = ordre;
    QStringList champs;
    for (const ColonneTravail &colonne : std::as_const(m_colonnes))
        champs << colonne.champ;
    Requete requete = m_donnees.executer(
        QStringLiteral("SELECT rowid, %1 FROM [%2] ORDER BY %3").arg(champs.join(u','), m_table, ordre));
    QList<Ligne> lues;
    m_prochain = -1;
    while (requete.suivant()) {
        Ligne ligne{requete.valeur(0).toLongLong(), {}};
        for (int i = 0; i < m_colonnes.size(); ++i)
            ligne.valeurs << requete.valeur(i + 1);
        m_prochain = std::min(m_prochain, ligne.numero - 1);
        lues << ligne;
    }
    beginResetModel();
    m_lignes = lues;
    endResetModel();
}

bool TableTravail::ligneVide(int ligne) const
{
    const QVector<QVariant> &valeurs = m_lignes[ligne].valeurs;
    return std::all_of(valeurs.begin(), valeurs.end(), [](const QVariant &v) { return v.isNull(); });
}

void TableTravail::retirerLignesVides()
{
    for (int ligne = rowCount() - 1; ligne >= 0; --ligne)
        if (ligneVide(ligne))
            removeRow(ligne);
}

QModelIndexList TableTravail::coller(int ligne, int colonne, const QList<QStringList> &textes)
{
    QModelIndexList refusees;
    const bool fait = essayer([&] {
        Transaction ensemble(m_donnees.Connect_Bdd());
        const int manquantes = ligne + static_cast<int>(textes.size()) - rowCount();
        if (manquantes > 0)
            insertRows(rowCount(), manquantes);
        if (rowCount() < ligne + textes.size())
            return; // which has been told
        for (int i = 0; i < textes.size(); ++i)
            for (int j = 0; j < textes[i].size() && colonne + j < columnCount(); ++j)
                if (!prendre(ligne + i, colonne + j, textes[i][j]))
                    refusees << index(ligne + i, colonne + j);
        ensemble.valider();
    });
    if (!fait) {
        // The store has undone the whole block.
        essayer([this] { relire(m_ordre); });
        return {};
    }
    if (ligne < rowCount())
        Q_EMIT dataChanged(index(ligne, colonne), index(rowCount() - 1, columnCount() - 1));
    return refusees;
}

int TableTravail::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_lignes.size());
}

int TableTravail::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_colonnes.size());
}

QVariant TableTravail::data(const QModelIndex &cellule, int role) const
{
    const ColonneTravail &colonne = m_colonnes[cellule.column()];
    if (role == Qt::DisplayRole || role == Qt::EditRole) {
        const QVariant lue = valeur(cellule.row(), cellule.column());
        return lue.isNull() ? QString() : colonne.ecrire(lue);
    }
    if (role == Qt::TextAlignmentRole)
        return QVariant(Qt::AlignVCenter | (colonne.nombre ? Qt::AlignRight : Qt::AlignLeft));
    return {};
}

QVariant TableTravail::headerData(int section, Qt::Orientation sens, int role) const
{
    if (role != Qt::DisplayRole)
        return QAbstractTableModel::headerData(section, sens, role);
    return sens == Qt::Horizontal ? QVariant(m_colonnes[section].titre) : QVariant(section + 1);
}

Qt::ItemFlags TableTravail::flags(const QModelIndex &cellule) const
{
    return QAbstractTableModel::flags(cellule) | Qt::ItemIsEditable;
}

bool TableTravail::setData(const QModelIndex &cellule, const QVariant &valeur, int role)
{
    if (role != Qt::EditRole || !cellule.isValid())
        return false;
    bool prise = false;
    if (!essayer([&] { prise = prendre(cellule.row(), cellule.column(), valeur.toString()); }))
        return false;
    Q_EMIT dataChanged(cellule, cellule);
    if (!prise) {
        const ColonneTravail &colonne = m_colonnes[cellule.column()];
        Q_EMIT refus(cellule, colonne.message, colonne.titreMessage);
    }
    return prise;
}

bool TableTravail::prendre(int ligne, int colonne, const QString &texte)
{
    const QString rogne = texte.trimmed();
    const std::optional<QVariant> lue =
        rogne.isEmpty() ? QVariant() : std::optional(m_colonnes[colonne].lire(rogne));
    ecrireCellule(ligne, colonne, lue.value_or(QVariant()));
    return lue.has_value();
}

void TableTravail::ecrireCellule(int ligne, int colonne, const QVariant &valeur)
{
    Ligne &la = m_lignes[ligne];
    if (la.valeurs[colonne] == valeur && la.valeurs[colonne].isNull() == valeur.isNull())
        return;
    Requete &ecriture = m_donnees.preparee(
        QStringLiteral("UPDATE [%1] SET %2 = ? WHERE rowid = ?").arg(m_table, m_colonnes[colonne].champ));
    ecriture.executer({valeur, la.numero});
    ecriture.finir();
    la.valeurs[colonne] = valeur;
}

bool TableTravail::insertRows(int ligne, int nombre, const QModelIndex &parent)
{
    if (parent.isValid() || nombre < 1 || ligne < 0 || ligne > rowCount())
        return false;
    QList<Ligne> nouvelles;
    const bool fait = essayer([&] {
        Requete &ajout =
            m_donnees.preparee(QStringLiteral("INSERT INTO [%1] (rowid) VALUES (?)").arg(m_table));
        for (int i = 0; i < nombre; ++i) {
            ajout.executer({m_prochain});
            nouvelles << Ligne{m_prochain--, QVector<QVariant>(m_colonnes.size())};
        }
        ajout.finir();
    });
    if (nouvelles.isEmpty())
        return false;
    beginInsertRows({}, ligne, ligne + static_cast<int>(nouvelles.size()) - 1);
    for (int i = 0; i < nouvelles.size(); ++i)
        m_lignes.insert(ligne + i, nouvelles[i]);
    endInsertRows();
    return fait;
}

bool TableTravail::removeRows(int ligne, int nombre, const QModelIndex &parent)
{
    if (parent.isValid() || nombre < 1 || ligne < 0 || ligne + nombre > rowCount())
        return false;
    const bool fait = essayer([&] {
        Requete &retrait =
            m_donnees.preparee(QStringLiteral("DELETE FROM [%1] WHERE rowid = ?").arg(m_table));
        for (int i = 0; i < nombre; ++i)
            retrait.executer({m_lignes[ligne + i].numero});
        retrait.finir();
    });
    if (!fait)
        return false;
    beginRemoveRows({}, ligne, ligne + nombre - 1);
    m_lignes.remove(ligne, nombre);
    endRemoveRows();
    return true;
}

bool TableTravail::essayer(const std::function<void()> &action)
{
    try {
        action();
        return true;
    } catch (const Erreur &erreur) {
        Q_EMIT echec(erreur.numeroEtDescription());
        return false;
    }
}
