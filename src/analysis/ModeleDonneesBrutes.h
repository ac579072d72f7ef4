// The raw data as a table that knows how many rows it has and reads those that are looked at.
#pragma once

#include "analysis/LignesDonneesBrutes.h"

#include <memory>
#include <QAbstractTableModel>
#include <QCache>

class DataEnvironment1;

// A million rows cost the view nothing: it asks for those on the screen, and they are read by pages, of which the last
// ones seen are kept. Read only.
class ModeleDonneesBrutes : public QAbstractTableModel
{
    Q_OBJECT
public:
    explicit ModeleDonneesBrutes(const DataEnvironment1 &donnees, QObject *parent = nullptr);
    ~ModeleDonneesBrutes() override;

    // Shows this set in this order (JeuDonneesBrutes::ordre). Null: nothing.
    void montrer(std::shared_ptr<JeuDonneesBrutes> jeu, std::vector<quint32> ordre = {});
    const std::shared_ptr<JeuDonneesBrutes> &jeu() const { return m_jeu; }

    // The key of a row's result, 0 outside; and the row of a key, -1 where it is not shown.
    qint64 numAnaPC(int ligne) const;
    int ligneDe(qint64 numAnaPC) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

Q_SIGNALS:
    // Rows have just been read from the base.
    void pageLue() const;

private:
    using Page = QList<LigneBrute>;
    const LigneBrute *ligne(int ligne) const;

    const DataEnvironment1 &m_donnees;
    std::shared_ptr<JeuDonneesBrutes> m_jeu;
    std::unique_ptr<LignesDonneesBrutes> m_lignes;
    mutable QCache<int, Page> m_pages;
};
