#include "analysis/ModeleDonneesBrutes.h"

#include "platform/Erreur.h"

#include <algorithm>

namespace
{
constexpr int LIGNES_PAR_PAGE = 128;
constexpr int PAGES_GARDEES = 64;
} // namespace

ModeleDonneesBrutes::ModeleDonneesBrutes(const DataEnvironment1 &donnees, QObject *parent)
    : QAbstractTableModel(parent), m_donnees(donnees), m_pages(PAGES_GARDEES)
{
}

ModeleDonneesBrutes::~ModeleDonneesBrutes() = default;

void ModeleDonneesBrutes::montrer(std::shared_ptr<JeuDonneesBrutes> jeu, std::vector<quint32> ordre)
{
    auto lignes = jeu ? std::make_unique<LignesDonneesBrutes>(m_donnees, jeu) : nullptr;
    beginResetModel();
    m_pages.clear();
    m_jeu = std::move(jeu);
    if (m_jeu)
        m_jeu->ordre = std::move(ordre);
    m_lignes = std::move(lignes);
    endResetModel();
}

qint64 ModeleDonneesBrutes::numAnaPC(int ligne) const
{
    return ligne >= 0 && ligne < rowCount() ? m_jeu->resultat(ligne).numAnaPC : 0;
}

int ModeleDonneesBrutes::ligneDe(qint64 numAnaPC) const
{
    for (int i = 0; i < rowCount(); ++i)
        if (m_jeu->resultat(i).numAnaPC == numAnaPC)
            return i;
    return -1;
}

int ModeleDonneesBrutes::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() || !m_jeu ? 0 : static_cast<int>(m_jeu->nombre());
}

int ModeleDonneesBrutes::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : NOMBRE_COLONNES_BRUTES;
}

// Null where the base cannot be read at this moment (it is being compacted): the row is asked for again when it is drawn.
const LigneBrute *ModeleDonneesBrutes::ligne(int ligne) const
{
    const int rang = ligne / LIGNES_PAR_PAGE;
    Page *page = m_pages.object(rang);
    if (!page) {
        try {
            page = new Page(m_lignes->lire(qsizetype(rang) * LIGNES_PAR_PAGE, LIGNES_PAR_PAGE));
        } catch (const Erreur &) {
            return nullptr;
        }
        m_pages.insert(rang, page);
        Q_EMIT pageLue();
    }
    return &page->at(ligne % LIGNES_PAR_PAGE);
}

QVariant ModeleDonneesBrutes::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const auto colonne = static_cast<ColonneBrute>(index.column());
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(Qt::Alignment(
            (ColonnesBrutes::aDroite(colonne) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter));
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
        return {};
    const LigneBrute *lue = ligne(index.row());
    if (!lue)
        return {};
    const QString texte = lue->texte(colonne);
    if (role == Qt::DisplayRole)
        return texte;
    const QString sens = colonne == ColonneBrute::Remarque ? ColonnesBrutes::sensRemarque(texte) : QString();
    // Shown as it is written, whatever tags it looks like.
    return sens.isEmpty() && !texte.isEmpty() ? QStringLiteral("<p>%1</p>").arg(texte.toHtmlEscaped()) : sens;
}

QVariant ModeleDonneesBrutes::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Vertical)
        return role == Qt::DisplayRole ? QVariant(nombreEntierFrancais(section + 1)) : QVariant();
    if (section < 0 || section >= NOMBRE_COLONNES_BRUTES)
        return {};
    const auto colonne = static_cast<ColonneBrute>(section);
    if (role == Qt::DisplayRole)
        return ColonnesBrutes::titre(colonne);
    if (role == Qt::ToolTipRole) {
        const QString explication = ColonnesBrutes::explication(colonne);
        const QString tri = QStringLiteral("Cliquez pour trier (Ctrl+T)");
        return explication.isEmpty() ? tri : explication + u'\n' + tri;
    }
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(Qt::Alignment(
            (ColonnesBrutes::aDroite(colonne) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter));
    return {};
}
