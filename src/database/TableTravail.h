// A work table of the store as the rows of a grid.
#pragma once

#include <functional>
#include <optional>
#include <QAbstractTableModel>

class DataEnvironment1;

// One column of the grid: where its values are, what it takes and how it shows them.
struct ColonneTravail {
    QString champ; // column of the table
    QString titre;
    // The value to store for a text that was typed or pasted (trimmed, not empty); nothing where it cannot be taken.
    // An emptied cell is NULL and needs no reading.
    std::function<std::optional<QVariant>(const QString &)> lire;
    // A stored value, never null, as the cell shows it.
    std::function<QString(const QVariant &)> ecrire;
    // Said of a text that cannot be taken.
    QString message;
    QString titreMessage;
    bool nombre = false; // aligned to the right
};

// The table is the truth: what a cell takes is written there at once, and a cell that refuses a text is left empty. Rows
// keep the order in which they were read; new ones come last. Rows that were filled by a statement have the rowids that
// it gave them, those that the user adds have negative ones, so that the two are never taken for each other.
class TableTravail : public QAbstractTableModel
{
    Q_OBJECT
public:
    TableTravail(const DataEnvironment1 &donnees, const QString &table, const QList<ColonneTravail> &colonnes,
                 QObject *parent = nullptr);

    // Deletes every row.
    void vider();
    // Reads the table again, in the order of these columns.
    void relire(const QString &ordre);

    // The rows in which nothing was typed are of no use to anybody: takes them out.
    void retirerLignesVides();
    bool ligneVide(int ligne) const;
    // The stored value of a cell; null where it is empty.
    QVariant valeur(int ligne, int colonne) const { return m_lignes[ligne].valeurs[colonne]; }
    const ColonneTravail &colonne(int colonne) const { return m_colonnes[colonne]; }

    // Writes a block of texts, its first one in this cell, adding the rows that are missing; what stands beyond the last
    // column is left out. Gives the cells that refused their text and were left empty; says nothing of them by `refus`.
    QModelIndexList coller(int ligne, int colonne, const QList<QStringList> &textes);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &cellule, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation sens, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &cellule) const override;
    bool setData(const QModelIndex &cellule, const QVariant &valeur, int role = Qt::EditRole) override;
    bool insertRows(int ligne, int nombre, const QModelIndex &parent = {}) override;
    bool removeRows(int ligne, int nombre, const QModelIndex &parent = {}) override;

Q_SIGNALS:
    // A cell could not take what was typed; it is empty now.
    void refus(const QModelIndex &cellule, const QString &message, const QString &titre);
    // The store could not do what the grid asked of it: number and words of the engine.
    void echec(const QString &numeroEtDescription);

private:
    struct Ligne {
        qint64 numero = 0; // rowid
        QVector<QVariant> valeurs;
    };

    // Runs what a view has asked for; a failure of the store must not go through the view.
    bool essayer(const std::function<void()> &action);
    // Reads and stores a text; false where it was refused.
    bool prendre(int ligne, int colonne, const QString &texte);
    void ecrireCellule(int ligne, int colonne, const QVariant &valeur);

    const DataEnvironment1 &m_donnees;
    QString m_table;
    QList<ColonneTravail> m_colonnes;
    QList<Ligne> m_lignes;
    QString m_ordre = QStringLiteral("rowid");
    qint64 m_prochain = -1; // rowid of the next row that the user adds
};
