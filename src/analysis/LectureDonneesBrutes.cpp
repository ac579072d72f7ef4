#include "analysis/LectureDonneesBrutes.h"

#include "analysis/NomsParCode.h"
#include "analysis/OrdreDonneesBrutes.h"
#include "database/DataEnvironment1.h"
#include "database/InstructionDirecte.h"
#include "database/M_Reseaux.h"

#include <algorithm>
#include <QElapsedTimer>

namespace
{
constexpr qint64 AVANT_TOUT = std::numeric_limits<qint64>::min();
constexpr qint64 APRES_TOUT = std::numeric_limits<qint64>::max();
constexpr qint64 PRELEVEMENTS_PAR_BLOC = 4000;
constexpr qint64 RESEAUX_PAR_BLOC = 8000;
} // namespace

LectureDonneesBrutes::LectureDonneesBrutes(const DataEnvironment1 &donnees,
                                           const DemandeDonneesBrutes &demande)
    : m_donnees(donnees), m_jeu(std::make_shared<JeuDonneesBrutes>()),
      m_debut(JourBrut::deDate(demande.debut)), m_fin(JourBrut::deDate(demande.fin))
{
    m_jeu->demande = demande;
    lireNoms();
}

void LectureDonneesBrutes::lireNoms()
{
    m_jeu->stations = Lexique(NomsParCode::lire(
        m_donnees, QStringLiteral("SELECT CodeSandreStationM, NomStationM FROM STATION_QUALITE")));
    m_jeu->preleveurs = Lexique(NomsParCode::intervenants(m_donnees));
    m_nomsReseaux = Lexique(
        NomsParCode::lire(m_donnees, QStringLiteral("SELECT CodeReseau, LibelleReseau FROM RESEAU_MESURE")));
    QHash<QString, QString> parametres;
    Requete r = m_donnees.executer(
        QStringLiteral("SELECT p.CodeParam, p.NomParam, u.SymboleUnite, p.CodeGroupeParam FROM PARAMETRE p "
                       "LEFT JOIN UNITEREFERENCE u ON u.CodeUnite = p.CodeUnite"));
    while (r.suivant()) {
        const QString code = r.texte(0).toCaseFolded();
        parametres.insert(code, r.texte(1).trimmed());
        m_jeu->unites.insert(code, r.texte(2).trimmed());
        if (r.texte(3).compare(QLatin1String("PS"), Qt::CaseInsensitive) == 0)
            m_pesticides << code;
    }
    m_jeu->parametres = Lexique(parametres);
}

bool LectureDonneesBrutes::avancer(int dureeMs)
{
    QElapsedTimer chrono;
    chrono.start();
    while (m_etape != Etape::Fin && chrono.elapsed() < dureeMs) {
        switch (m_etape) {
        case Etape::Prelevements:
            lirePrelevements();
            break;
        case Etape::Reseaux:
            lireReseaux();
            break;
        case Etape::Orphelins:
            lireOrphelins();
            break;
        case Etape::Resultats:
            lireResultats(dureeMs - static_cast<int>(chrono.elapsed()));
            break;
        case Etape::Fin:
            break;
        }
    }
    return m_etape != Etape::Fin;
}

int LectureDonneesBrutes::pourcentage() const
{
    constexpr int PREPARATION = 15; // of a hundred
    switch (m_etape) {
    case Etape::Prelevements:
        return 0;
    case Etape::Reseaux:
        return 5;
    case Etape::Orphelins:
        return 10;
    case Etape::Resultats:
        return PREPARATION + static_cast<int>(m_rang * (100 - PREPARATION) /
                                              std::max<std::size_t>(m_jeu->prelevements.size(), 1));
    case Etape::Fin:
        break;
    }
    return 100;
}

bool LectureDonneesBrutes::retenu(int jour) const
{
    return (m_debut == 0 || jour >= m_debut) && (m_fin == 0 || (jour != 0 && jour <= m_fin));
}

void LectureDonneesBrutes::lirePrelevements()
{
    const DemandeDonneesBrutes &demande = m_jeu->demande;
    const bool uneStation = !demande.station.isEmpty();
    InstructionDirecte lecture(
        m_donnees.Connect_Bdd(),
        uneStation
            ? "SELECT NumPrel, CodeSandreStationM, DatePrel, HeurePrel, CodeSandrePrelev FROM PRELEVEMENT "
              "WHERE CodeSandreStationM = ?1 ORDER BY NumPrel"
            : "SELECT NumPrel, CodeSandreStationM, DatePrel, HeurePrel, CodeSandrePrelev FROM PRELEVEMENT "
              "WHERE NumPrel > ?1 ORDER BY NumPrel LIMIT ?2");
    if (uneStation)
        lecture.lire({demande.station});
    else
        lecture.lire({m_dernier, PRELEVEMENTS_PAR_BLOC});
    qint64 lus = 0;
    while (lecture.suivant()) {
        ++lus;
        JeuDonneesBrutes::Prelevement p;
        p.numPrel = m_dernier = lecture.entier(0);
        p.jour = JourBrut::lire(lecture.octets(2));
        if (!retenu(p.jour))
            continue;
        p.station = m_jeu->stations.numero(lecture.octets(1));
        p.heure = JourBrut::lireHeure(lecture.octets(3));
        p.preleveur = m_jeu->preleveurs.numero(lecture.octets(4));
        m_jeu->prelevements.push_back(p);
    }
    if (uneStation || lus < PRELEVEMENTS_PAR_BLOC) {
        m_reseaux.resize(m_jeu->prelevements.size());
        m_dernier = AVANT_TOUT;
        m_etape = Etape::Reseaux;
    }
}

void LectureDonneesBrutes::lireReseaux()
{
    std::vector<JeuDonneesBrutes::Prelevement> &prelevements = m_jeu->prelevements;
    if (!m_jeu->demande.station.isEmpty()) {
        InstructionDirecte lecture(m_donnees.Connect_Bdd(),
                                   "SELECT CodeReseau FROM PRELEVEMENTRSX WHERE NumPrel = ? ORDER BY rowid");
        for (std::size_t i = 0; i < prelevements.size(); ++i)
            for (lecture.lire({prelevements[i].numPrel}); lecture.suivant();)
                m_reseaux[i] << m_nomsReseaux.numero(lecture.octets(0));
        attribuerReseaux();
        return;
    }
    InstructionDirecte lecture(
        m_donnees.Connect_Bdd(),
        "SELECT rowid, NumPrel, CodeReseau FROM PRELEVEMENTRSX WHERE rowid > ? ORDER BY rowid LIMIT ?");
    qint64 lus = 0;
    for (lecture.lire({m_dernier, RESEAUX_PAR_BLOC}); lecture.suivant(); ++lus) {
        m_dernier = lecture.entier(0);
        const qint64 numPrel = lecture.entier(1);
        const auto trouve = std::lower_bound(
            prelevements.begin(), prelevements.end(), numPrel,
            [](const JeuDonneesBrutes::Prelevement &p, qint64 numero) { return p.numPrel < numero; });
        if (trouve != prelevements.end() && trouve->numPrel == numPrel)
            m_reseaux[static_cast<std::size_t>(trouve - prelevements.begin())]
                << m_nomsReseaux.numero(lecture.octets(2));
    }
    if (lus < RESEAUX_PAR_BLOC)
        attribuerReseaux();
}

// The labels of each sampling's networks, joined; each such text once.
void LectureDonneesBrutes::attribuerReseaux()
{
    QHash<QList<int>, int> textes;
    for (std::size_t i = 0; i < m_reseaux.size(); ++i) {
        QList<int> &numeros = m_reseaux[i];
        numeros.removeAll(Lexique::AUCUN);
        if (numeros.isEmpty())
            continue;
        auto texte = textes.constFind(numeros);
        if (texte == textes.constEnd()) {
            QStringList libelles;
            for (const int numero : std::as_const(numeros))
                libelles << m_nomsReseaux.libelle(numero);
            const QByteArray joints = libelles.join(M_Reseaux::SEPARATEUR).toUtf8();
            texte = textes.insert(numeros, m_jeu->reseaux.numero(joints));
        }
        m_jeu->prelevements[i].reseaux = *texte;
    }
    m_reseaux = {};
    m_rang = 0;
    m_dernier = AVANT_TOUT;
    // A result without its sampling has neither station nor date to be looked for.
    const DemandeDonneesBrutes &demande = m_jeu->demande;
    if (demande.station.isEmpty() && m_debut == 0 && m_fin == 0) {
        m_etape = Etape::Orphelins;
    } else {
        rangerPrelevements();
        m_etape = Etape::Resultats;
    }
}

bool LectureDonneesBrutes::retenuParFamille(int parametre)
{
    const std::optional<Famille> famille = m_jeu->demande.famille;
    if (!famille)
        return true;
    if (parametre < 0)
        return famille == Famille::PhysicoChimie;
    while (m_familles.size() <= parametre) {
        const QString code = m_jeu->parametres.code(static_cast<int>(m_familles.size())).toCaseFolded();
        m_familles << (m_pesticides.contains(code) == (famille == Famille::Pesticides));
    }
    return m_familles.at(parametre);
}

void LectureDonneesBrutes::garder(InstructionDirecte &lecture, int prelevement)
{
    while (lecture.suivant()) {
        const int parametre = m_jeu->parametres.numero(lecture.octets(1));
        if (retenuParFamille(parametre))
            m_jeu->resultats.push_back({lecture.entier(0), prelevement, parametre});
    }
}

void LectureDonneesBrutes::lireOrphelins()
{
    const QString &parametre = m_jeu->demande.parametre;
    const auto &prelevements = m_jeu->prelevements;
    const InstructionDirecte::Valeur code = InstructionDirecte::ouNul(parametre);
    if (m_rang == 0) {
        InstructionDirecte sansNumero(m_donnees.Connect_Bdd(),
                                      "SELECT NumAnaPC, CodeParam FROM MESURE_PHYSICO WHERE NumPrel IS NULL "
                                      "AND (?1 IS NULL OR CodeParam = ?1) ORDER BY CodeParam, NumAnaPC");
        sansNumero.lire({code});
        garder(sansNumero, Lexique::AUCUN);
    }
    InstructionDirecte entre(
        m_donnees.Connect_Bdd(),
        "SELECT NumAnaPC, CodeParam FROM MESURE_PHYSICO WHERE NumPrel > ?2 AND NumPrel < ?3 "
        "AND (?1 IS NULL OR CodeParam = ?1) ORDER BY NumPrel, CodeParam, NumAnaPC");
    constexpr std::size_t TROUS_PAR_BLOC = 2000;
    // The samplings still stand in the order of their numbers, all of them.
    for (std::size_t trous = 0; trous < TROUS_PAR_BLOC && m_rang <= prelevements.size(); ++m_rang) {
        const qint64 suivant = m_rang < prelevements.size() ? prelevements[m_rang].numPrel : APRES_TOUT;
        const bool premier = m_rang == 0;
        if (premier || m_dernier + 1 < suivant) {
            entre.lire({code, m_dernier, suivant});
            garder(entre, Lexique::AUCUN);
            ++trous;
        }
        m_dernier = suivant;
    }
    if (m_rang > prelevements.size()) {
        m_rang = 0;
        rangerPrelevements();
        m_etape = Etape::Resultats;
    }
}

void LectureDonneesBrutes::rangerPrelevements()
{
    const QList<quint32> rangs = m_jeu->stations.rangs(Lexique::Par::Code);
    const auto station = [&rangs](const JeuDonneesBrutes::Prelevement &p) {
        return p.station < 0 ? 0 : rangs.at(p.station);
    };
    std::sort(m_jeu->prelevements.begin(), m_jeu->prelevements.end(), [&](const auto &a, const auto &b) {
        return std::tuple(station(a), a.jour, a.heure, a.numPrel) <
               std::tuple(station(b), b.jour, b.heure, b.numPrel);
    });
}

void LectureDonneesBrutes::lireResultats(int dureeMs)
{
    QElapsedTimer chrono;
    chrono.start();
    const QString &parametre = m_jeu->demande.parametre;
    // The index on the sampling and the parameter gives both columns.
    InstructionDirecte lecture(m_donnees.Connect_Bdd(),
                               parametre.isEmpty()
                                   ? "SELECT NumAnaPC, CodeParam FROM MESURE_PHYSICO WHERE NumPrel = ?1 "
                                     "ORDER BY CodeParam, NumAnaPC"
                                   : "SELECT NumAnaPC, CodeParam FROM MESURE_PHYSICO WHERE NumPrel = ?1 "
                                     "AND CodeParam = ?2 ORDER BY NumAnaPC");
    const auto &prelevements = m_jeu->prelevements;
    constexpr std::size_t ENTRE_DEUX_REGARDS = 32;
    while (m_rang < prelevements.size()) {
        const auto numPrel = prelevements[m_rang].numPrel;
        if (parametre.isEmpty())
            lecture.lire({numPrel});
        else
            lecture.lire({numPrel, parametre});
        garder(lecture, static_cast<int>(m_rang));
        ++m_rang;
        if (m_rang % ENTRE_DEUX_REGARDS == 0 && chrono.elapsed() >= dureeMs)
            return;
    }
    m_etape = Etape::Fin;
}

LectureColonneBrute::LectureColonneBrute(const DataEnvironment1 &donnees,
                                         std::shared_ptr<JeuDonneesBrutes> jeu, ColonneBrute colonne)
    : m_donnees(donnees), m_jeu(std::move(jeu)), m_colonne(colonne)
{
    const std::vector<JeuDonneesBrutes::Resultat> &resultats = m_jeu->resultats;
    std::vector<quint64> numeros(resultats.size());
    constexpr quint64 SIGNE = quint64(1) << 63; // keys below 0 come first
    std::transform(resultats.begin(), resultats.end(), numeros.begin(),
                   [](const auto &r) { return static_cast<quint64>(r.numAnaPC) ^ SIGNE; });
    m_parNumero = OrdreDonneesBrutes::ordonner(std::move(numeros), false);
    if (m_colonne == ColonneBrute::Resultat) {
        m_valeurs.assign(resultats.size(), std::numeric_limits<double>::quiet_NaN());
    } else {
        m_attribut.numeros.assign(resultats.size(), Lexique::AUCUN);
        if (m_colonne == ColonneBrute::Fraction)
            m_attribut.lexique = Lexique(NomsParCode::fractions(donnees));
        else if (m_colonne != ColonneBrute::Remarque)
            m_attribut.lexique = Lexique(NomsParCode::intervenants(donnees));
    }
}

int LectureColonneBrute::pourcentage() const
{
    return m_parNumero.empty() ? 100 : static_cast<int>(m_lus * 100 / m_parNumero.size());
}

bool LectureColonneBrute::avancer(int dureeMs)
{
    QElapsedTimer chrono;
    chrono.start();
    while (m_lus < m_parNumero.size()) {
        if (chrono.elapsed() >= dureeMs)
            return true;
        lireUnBloc();
    }
    if (m_colonne == ColonneBrute::Resultat)
        m_jeu->valeurs = std::move(m_valeurs);
    else
        m_jeu->attributs[static_cast<std::size_t>(JeuDonneesBrutes::rangAttribut(m_colonne))] =
            std::move(m_attribut);
    return false;
}

void LectureColonneBrute::noter(quint32 place, const InstructionDirecte &lecture)
{
    if (m_colonne != ColonneBrute::Resultat)
        m_attribut.numeros[place] = m_attribut.lexique.numero(lecture.octets(1));
    else if (!lecture.estNul(1))
        m_valeurs[place] = lecture.reel(1);
}

// The next keys: in one run over the table where they lie close, else each by itself.
void LectureColonneBrute::lireUnBloc()
{
    constexpr std::size_t BLOC = 4000;
    constexpr quint64 ECART = 8; // rows passed over that cost as much as finding one
    static const QHash<ColonneBrute, QByteArray> COLONNES{{ColonneBrute::Resultat, "ResultatAnaPC"},
                                                          {ColonneBrute::Remarque, "CodeRemarqueAnaPC"},
                                                          {ColonneBrute::Fraction, "Cd_Fraction"},
                                                          {ColonneBrute::Gestionnaire, "CodeSandreGest"},
                                                          {ColonneBrute::Laboratoire, "CodeSandreLabo"}};
    const QByteArray debut = "SELECT NumAnaPC, " + COLONNES.value(m_colonne) + " FROM MESURE_PHYSICO WHERE ";
    const std::size_t fin = std::min(m_lus + BLOC, m_parNumero.size());
    const auto numero = [this](std::size_t i) { return m_jeu->resultats[m_parNumero[i]].numAnaPC; };
    const quint64 etendue = static_cast<quint64>(numero(fin - 1)) - static_cast<quint64>(numero(m_lus));

    if (etendue / ECART > fin - m_lus) {
        InstructionDirecte lecture(m_donnees.Connect_Bdd(), (debut + "NumAnaPC = ?").constData());
        for (; m_lus < fin; ++m_lus)
            for (lecture.lire({numero(m_lus)}); lecture.suivant();)
                noter(m_parNumero[m_lus], lecture);
        return;
    }
    InstructionDirecte lecture(m_donnees.Connect_Bdd(),
                               (debut + "NumAnaPC >= ? AND NumAnaPC <= ? ORDER BY NumAnaPC").constData());
    lecture.lire({numero(m_lus), numero(fin - 1)});
    while (lecture.suivant()) {
        const qint64 lu = lecture.entier(0);
        while (m_lus < fin && numero(m_lus) < lu) // deleted since
            ++m_lus;
        if (m_lus < fin && numero(m_lus) == lu)
            noter(m_parNumero[m_lus++], lecture);
    }
    m_lus = fin;
}

MarqueBase MarqueBase::lire(const DataEnvironment1 &donnees)
{
    return {donnees.valeur(QStringLiteral("SELECT total_changes()")).toLongLong(),
            donnees.valeur(QStringLiteral("PRAGMA data_version")).toLongLong()};
}
