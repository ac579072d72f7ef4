#include "capture/ModelePrelevement.h"

#include "capture/ListesPrelevement.h"
#include "database/DataEnvironment1.h"
#include "database/SondeBase.h"
#include "database/Transaction.h"
#include "platform/Erreur.h"

using namespace ReglesPrelevement;

ModelePrelevement::ModelePrelevement(const DataEnvironment1 &donnees, FamillePrelevement famille,
                                     QObject *parent)
    : QAbstractTableModel(parent), m_donnees(donnees), m_famille(famille), m_travail(donnees, famille)
{
}

void ModelePrelevement::vider()
{
    charger({});
}

void ModelePrelevement::charger(const QList<LignePrelevement> &lignes)
{
    QList<qint64> numeros;
    Transaction ensemble(m_donnees.Connect_Bdd());
    m_travail.vider();
    for (const LignePrelevement &ligne : lignes)
        numeros << m_travail.ajouter(ligne);
    ensemble.valider();
    beginResetModel();
    m_lignes = lignes;
    m_numeros = numeros;
    endResetModel();
}

QList<TextesLigne> ModelePrelevement::textes() const
{
    QList<TextesLigne> liste;
    for (const LignePrelevement &ligne : m_lignes)
        liste << ligne;
    return liste;
}

void ModelePrelevement::modifier(int ligne, const TextesLigne &textes)
{
    static_cast<TextesLigne &>(m_lignes[ligne]) = textes;
    ecrireLigne(ligne);
    partager(ligne);
}

int ModelePrelevement::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_lignes.size());
}

int ModelePrelevement::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : NOMBRE_COLONNES;
}

QVariant ModelePrelevement::data(const QModelIndex &cellule, int role) const
{
    const QString &texte = ReglesPrelevement::texte(m_lignes[cellule.row()], cellule.column());
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return texte;
    case Qt::ToolTipRole:
        return texte.isEmpty() ? QVariant() : QVariant(texte.toHtmlEscaped());
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(Qt::Alignment(
            Qt::AlignVCenter | (cellule.column() == RESULTAT ? Qt::AlignRight : Qt::AlignLeft)));
    default:
        return {};
    }
}

QVariant ModelePrelevement::headerData(int section, Qt::Orientation sens, int role) const
{
    static const QStringList TITRES{QStringLiteral("Paramètre"),   QStringLiteral("Résultat"),
                                    QStringLiteral("Unité"),       QStringLiteral("Code remarque"),
                                    QStringLiteral("Fraction"),    QStringLiteral("Préleveur"),
                                    QStringLiteral("Laboratoire"), QStringLiteral("Gestionnaire"),
                                    QStringLiteral("Réseau"),      QStringLiteral("Autre")};
    if (role != Qt::DisplayRole)
        return QAbstractTableModel::headerData(section, sens, role);
    return sens == Qt::Horizontal ? QVariant(TITRES.value(section)) : QVariant(section + 1);
}

Qt::ItemFlags ModelePrelevement::flags(const QModelIndex &cellule) const
{
    const Qt::ItemFlags drapeaux = QAbstractTableModel::flags(cellule);
    return cellule.column() == UNITE ? drapeaux : drapeaux | Qt::ItemIsEditable;
}

bool ModelePrelevement::setData(const QModelIndex &cellule, const QVariant &valeur, int role)
{
    if (role != Qt::EditRole || !cellule.isValid())
        return false;
    const int ligne = cellule.row();
    LignePrelevement &l = m_lignes[ligne];
    texte(l, cellule.column()) = valeur.toString();
    switch (cellule.column()) {
    case PARAMETRE:
        essayer([this, &l] {
            const auto parametre = ListesPrelevement::parametre(m_donnees, m_famille, l.parametre);
            l.unite = parametre ? parametre->unite : QString();
        });
        break;
    case PRELEVEUR:
        // A row that joins a sampling has the sampling's networks and protocol.
        if (!l.preleveur.isEmpty() && l.reseau.isEmpty() && l.protocole.isEmpty()) {
            const auto autre =
                std::find_if(m_lignes.cbegin(), m_lignes.cend(),
                             [&l](const LignePrelevement &a) { return &a != &l && memePrelevement(a, l); });
            if (autre != m_lignes.cend()) {
                l.reseau = autre->reseau;
                l.protocole = autre->protocole;
            }
        }
        break;
    default:
        break;
    }
    ecrireLigne(ligne);
    if (cellule.column() == RESEAU)
        partager(ligne);
    return true;
}

// Gives the network and the protocol of a row to the others of its sampling.
void ModelePrelevement::partager(int ligne)
{
    if (m_lignes[ligne].preleveur.isEmpty())
        return;
    for (int i = 0; i < m_lignes.size(); ++i) {
        LignePrelevement &autre = m_lignes[i];
        if (i == ligne || !memePrelevement(autre, m_lignes[ligne]))
            continue;
        if (autre.reseau == m_lignes[ligne].reseau && autre.protocole == m_lignes[ligne].protocole)
            continue;
        autre.reseau = m_lignes[ligne].reseau;
        autre.protocole = m_lignes[ligne].protocole;
        ecrireLigne(i);
    }
}

void ModelePrelevement::ecrireLigne(int ligne)
{
    essayer([this, ligne] { m_travail.modifier(m_numeros[ligne], m_lignes[ligne]); });
    Q_EMIT dataChanged(index(ligne, 0), index(ligne, NOMBRE_COLONNES - 1));
}

bool ModelePrelevement::insertRows(int ligne, int nombre, const QModelIndex &parent)
{
    if (parent.isValid() || nombre < 1 || ligne < 0 || ligne > rowCount())
        return false;
    QList<qint64> numeros;
    essayer([&] {
        for (int i = 0; i < nombre; ++i)
            numeros << m_travail.ajouter({});
    });
    if (numeros.size() < nombre)
        return false;
    beginInsertRows({}, ligne, ligne + nombre - 1);
    for (int i = 0; i < nombre; ++i) {
        m_lignes.insert(ligne + i, LignePrelevement());
        m_numeros.insert(ligne + i, numeros[i]);
    }
    endInsertRows();
    return true;
}

bool ModelePrelevement::removeRows(int ligne, int nombre, const QModelIndex &parent)
{
    if (parent.isValid() || nombre < 1 || ligne < 0 || ligne + nombre > rowCount())
        return false;
    essayer([&] {
        for (int i = 0; i < nombre; ++i)
            m_travail.supprimer(m_numeros[ligne + i]);
    });
    beginRemoveRows({}, ligne, ligne + nombre - 1);
    m_lignes.remove(ligne, nombre);
    m_numeros.remove(ligne, nombre);
    endRemoveRows();
    return true;
}

void ModelePrelevement::essayer(const std::function<void()> &action)
{
    try {
        action();
    } catch (const Erreur &erreur) {
        Q_EMIT echec(SondeBase::enFrancais(erreur).numeroEtDescription());
    }
}
