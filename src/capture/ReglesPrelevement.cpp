#include "capture/ReglesPrelevement.h"

#include "capture/M_Variables_OVRA.h"
#include "database/M_Reseaux.h"
#include "platform/VersNombre.h"

#include <cmath>

namespace
{
constexpr int LONGUEUR_LIEU = 50;
constexpr int LONGUEUR_PROTOCOLE = 255;

const QString &manquants()
{
    static const QString texte = QStringLiteral("Des éléments sont manquants dans le tableau.");
    return texte;
}

// A number that is still one once it is kept to four decimals.
bool estNombre(const QString &texte)
{
    return EstNumerique(texte) && std::isfinite(VersNombre(texte));
}

// A refusal after which the user goes on.
RefusSaisie inconnu(const char16_t *message, const QString &reste = {})
{
    return {QString::fromUtf16(message), QStringLiteral("Erreur"), reste, false};
}

bool intervenantRefuse(const QString &texte, const ReglesPrelevement::References &references)
{
    return !texte.isEmpty() && !references.intervenant(texte);
}
} // namespace

QString &ReglesPrelevement::texte(TextesLigne &ligne, int colonne)
{
    switch (colonne) {
    case PARAMETRE:
        return ligne.parametre;
    case RESULTAT:
        return ligne.resultat;
    case UNITE:
        return ligne.unite;
    case CODE_REMARQUE:
        return ligne.remarque;
    case FRACTION:
        return ligne.fraction;
    case PRELEVEUR:
        return ligne.preleveur;
    case LABORATOIRE:
        return ligne.laboratoire;
    case GESTIONNAIRE:
        return ligne.gestionnaire;
    case RESEAU:
        return ligne.reseau;
    default:
        return ligne.autre;
    }
}

const QString &ReglesPrelevement::texte(const TextesLigne &ligne, int colonne)
{
    return texte(const_cast<TextesLigne &>(ligne), colonne);
}

const QStringList &ReglesPrelevement::choixAutre()
{
    static const QStringList choix{
        QStringLiteral("Autres détails"),      QStringLiteral("Nouveau gestionnaire"),
        QStringLiteral("Nouveau laboratoire"), QStringLiteral("Nouveau paramètre"),
        QStringLiteral("Nouveau préleveur"),   QStringLiteral("Nouveau réseau ")};
    return choix;
}

std::optional<RefusSaisie> ReglesPrelevement::jugerCellule(int colonne, const QString &texte,
                                                           const References &references)
{
    static const QStringList REMARQUES{QStringLiteral("0"), QStringLiteral("1"), QStringLiteral("2"),
                                       QStringLiteral("3"), QStringLiteral("10")};
    switch (colonne) {
    case PARAMETRE:
        if (texte.isEmpty() || !references.parametre(texte))
            return RefusSaisie{QStringLiteral("Le paramètre saisi n'existe pas."), QStringLiteral("Erreur")};
        break;
    case RESULTAT:
        if (!texte.isEmpty() && !estNombre(texte))
            return RefusSaisie{QStringLiteral("Le résultat doit être de type numérique."),
                               QStringLiteral("Erreur de type")};
        break;
    case CODE_REMARQUE:
        if (!REMARQUES.contains(texte))
            return RefusSaisie{QStringLiteral("Le code remarque doit être 0, 1, 2, 3 ou 10."),
                               QStringLiteral("Attention")};
        break;
    case FRACTION:
        if (texte.isEmpty() || !references.fraction(texte))
            return inconnu(u"Le code fraction saisi n'existe pas.", QStringLiteral("0"));
        break;
    case PRELEVEUR:
        if (intervenantRefuse(texte, references))
            return inconnu(u"L'organisme préleveur saisi n'existe pas.");
        break;
    case LABORATOIRE:
        if (intervenantRefuse(texte, references))
            return inconnu(u"Le laboratoire d'analyse saisi n'existe pas.");
        break;
    case GESTIONNAIRE:
        if (intervenantRefuse(texte, references))
            return inconnu(u"Le gestionnaire saisi n'existe pas.");
        break;
    case RESEAU: {
        const QStringList labels = decouperReseaux(texte, references.reseau);
        if (!std::all_of(labels.begin(), labels.end(), references.reseau))
            return inconnu(u"Le réseau saisi n'existe pas.");
        break;
    }
    case AUTRE: {
        const auto designe = [&texte](const QString &choix) { return choix.trimmed() == texte; };
        if (!std::any_of(choixAutre().begin(), choixAutre().end(), designe))
            return inconnu(u"L'élément demandé n'existe pas.");
        break;
    }
    default:
        break;
    }
    return std::nullopt;
}

QStringList ReglesPrelevement::decouperReseaux(const QString &texte,
                                               const std::function<bool(const QString &)> &connu)
{
    const QString barre = M_Reseaux::SEPARATEUR.toString();
    const QStringList morceaux = texte.split(barre, Qt::SkipEmptyParts);
    QStringList labels;
    for (qsizetype i = 0; i < morceaux.size();) {
        // The longest run of pieces that is a label; one piece where none is.
        qsizetype pris = morceaux.size() - i;
        while (pris > 1 && !connu(QStringList(morceaux.mid(i, pris)).join(barre).trimmed()))
            --pris;
        const QString label = QStringList(morceaux.mid(i, pris)).join(barre).trimmed();
        if (!label.isEmpty() && !labels.contains(label))
            labels << label;
        i += pris;
    }
    return labels;
}

std::optional<ReglesPrelevement::Manque> ReglesPrelevement::premierManque(const QString &station,
                                                                          const QString &date,
                                                                          const QList<TextesLigne> &lignes,
                                                                          const References &references)
{
    if (station.isEmpty())
        return Manque{QStringLiteral("Le nom doit être renseigné. "), Manque::Champ::Station};
    if (date.isEmpty())
        return Manque{QStringLiteral("La date doit être renseignée. "), Manque::Champ::Date};
    if (lignes.isEmpty())
        return Manque{manquants()};
    for (int i = 0; i < lignes.size(); ++i) {
        QList<int> exigees{PARAMETRE, RESULTAT, CODE_REMARQUE, PRELEVEUR, GESTIONNAIRE};
        if (!references.environnemental(lignes[i].parametre))
            exigees << LABORATOIRE << FRACTION;
        for (const int colonne : std::as_const(exigees))
            if (texte(lignes[i], colonne).isEmpty())
                return Manque{manquants(), Manque::Champ::Tableau, i, colonne};
    }
    return std::nullopt;
}

QString ReglesPrelevement::heureNormale(const QString &texte)
{
    if (!M_Variables_OVRA::HeureValide(texte))
        return {};
    return texte.size() == 5 ? texte + QStringLiteral(":00") : texte;
}

bool ReglesPrelevement::memePrelevement(const LignePrelevement &a, const LignePrelevement &b)
{
    if (a.preleveur.compare(b.preleveur, Qt::CaseInsensitive) != 0)
        return false;
    // Without a time, rows of several samplings of one sampler stand side by side.
    return !a.source || !b.source || a.source->numPrel == b.source->numPrel;
}

QString ReglesPrelevement::limite(const QString &texte)
{
    return texte.trimmed().replace(u'.', u',');
}

std::optional<RefusSaisie> ReglesPrelevement::jugerLimite(const QString &texte)
{
    if (texte.trimmed().isEmpty() || estNombre(texte))
        return std::nullopt;
    return RefusSaisie{QStringLiteral("La valeur demandée doit être de type numérique."),
                       QStringLiteral("Erreur de type")};
}

namespace
{
std::optional<RefusSaisie> jugerChoix(const QString &texte, const QStringList &proposes, int maximum,
                                      const QString &quoi)
{
    if (auto long_ = ReglesPrelevement::jugerLongueur(texte, maximum, quoi))
        return long_;
    // The store keeps the code of a row of the list: it has no place for another text.
    if (!texte.isEmpty() && !proposes.contains(texte))
        return RefusSaisie{QStringLiteral("Cette valeur n'existe pas dans la liste."),
                           QStringLiteral("Attention")};
    return std::nullopt;
}
} // namespace

std::optional<RefusSaisie> ReglesPrelevement::jugerLieu(const QString &texte, const QStringList &proposes)
{
    return jugerChoix(texte, proposes, LONGUEUR_LIEU, QStringLiteral("Le lieu d'analyses"));
}

std::optional<RefusSaisie> ReglesPrelevement::jugerProtocole(const QString &texte,
                                                             const QStringList &proposes)
{
    return jugerChoix(texte, proposes, LONGUEUR_PROTOCOLE, QStringLiteral("Le protocole de suivi"));
}

std::optional<RefusSaisie> ReglesPrelevement::jugerLongueur(const QString &texte, int maximum,
                                                            const QString &quoi)
{
    if (texte.size() <= maximum)
        return std::nullopt;
    return RefusSaisie{
        QStringLiteral("%1 ne doit contenir que %2 caractères au maximum.").arg(quoi).arg(maximum),
        QStringLiteral("Attention")};
}
