// The rows of a sampling for a grid, each of them also in the work table.
#pragma once

#include "capture/ReglesPrelevement.h"
#include "capture/TravailPrelevement.h"

#include <QAbstractTableModel>

class DataEnvironment1;

// Takes any text: what a cell may hold is judged by the grid. The unit follows the parameter. Network and protocol are the
// sampling's: what one of its rows gets, its other rows get too.
class ModelePrelevement : public QAbstractTableModel
{
    Q_OBJECT
public:
    ModelePrelevement(const DataEnvironment1 &donnees, FamillePrelevement famille, QObject *parent = nullptr);

    // Both throw an Erreur where the work table cannot be written.
    void vider();
    void charger(const QList<LignePrelevement> &lignes);

    const QList<LignePrelevement> &lignes() const { return m_lignes; }
    QList<TextesLigne> textes() const;
    // What the detail sheet gives back for a row.
    void modifier(int ligne, const TextesLigne &textes);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &cellule, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation sens, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &cellule) const override;
    bool setData(const QModelIndex &cellule, const QVariant &valeur, int role = Qt::EditRole) override;
    bool insertRows(int ligne, int nombre, const QModelIndex &parent = {}) override;
    bool removeRows(int ligne, int nombre, const QModelIndex &parent = {}) override;

Q_SIGNALS:
    // The work table could not follow; number and words of the engine. The rows are as the grid shows them.
    void echec(const QString &numeroEtDescription);

private:
    void essayer(const std::function<void()> &action);
    void partager(int ligne);
    void ecrireLigne(int ligne);

    const DataEnvironment1 &m_donnees;
    FamillePrelevement m_famille;
    TravailPrelevement m_travail;
    QList<LignePrelevement> m_lignes;
    QList<qint64> m_numeros; // in the work table
};
