#include "pilote/Scenario.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QRegularExpression>

namespace
{
// What a step takes, one letter an argument: C a control (FORM.CONTROL), W a form, M a bare name, T a text, P a path, N
// a number; R a text or `annuler`, Q a path or `annuler`. Small letters are optional.
const QHash<QString, QByteArray> &formes()
{
    static const QHash<QString, QByteArray> table = {
        {QStringLiteral("horloge"), "T"},
        {QStringLiteral("base"), "Q"},
        {QStringLiteral("quitter"), ""},
        {QStringLiteral("termine"), ""},
        {QStringLiteral("menu"), "M"},
        {QStringLiteral("attendre"), "Wn"},
        {QStringLiteral("saisir"), "CT"},
        {QStringLiteral("taper"), "CT"},
        {QStringLiteral("touche"), "CT"},
        {QStringLiteral("choisir"), "CT"},
        {QStringLiteral("deselectionner"), "Ct"},
        {QStringLiteral("double_clic"), "CT"},
        {QStringLiteral("cocher"), "C"},
        {QStringLiteral("decocher"), "C"},
        {QStringLiteral("cliquer"), "C"},
        {QStringLiteral("onglet"), "CT"},
        {QStringLiteral("cellule"), "CNNT"},
        {QStringLiteral("bouton_cellule"), "CNN"},
        {QStringLiteral("supprimer_ligne"), "CN"},
        {QStringLiteral("fermer"), "W"},
        {QStringLiteral("reponse"), "T"},
        {QStringLiteral("fichier"), "Q"},
        {QStringLiteral("couleur"), "R"},
        {QStringLiteral("tuer_tableur"), "n"},
        {QStringLiteral("message"), "T"},
        {QStringLiteral("message_titre"), "TT"},
        {QStringLiteral("question"), "TT"},
        {QStringLiteral("aucun_message"), ""},
        {QStringLiteral("ouvert"), "P"},
        {QStringLiteral("fichier_existe"), "P"},
        {QStringLiteral("fichier_absent"), "P"},
        {QStringLiteral("ferme"), "W"},
        {QStringLiteral("verifier"), "CT"},
        {QStringLiteral("verifier_cellule"), "CNNT"},
        {QStringLiteral("verifier_ligne"), "CNT"},
        {QStringLiteral("lignes"), "CN"},
        {QStringLiteral("selection"), "CT"},
        {QStringLiteral("coche"), "C"},
        {QStringLiteral("decoche"), "C"},
        {QStringLiteral("actif"), "C"},
        {QStringLiteral("inactif"), "C"},
        {QStringLiteral("visible"), "C"},
        {QStringLiteral("invisible"), "C"},
        {QStringLiteral("menu_actif"), "M"},
        {QStringLiteral("menu_inactif"), "M"},
        {QStringLiteral("foyer"), "C"},
        {QStringLiteral("titre"), "T"},
        {QStringLiteral("titre_fenetre"), "WT"},
        {QStringLiteral("capture"), "T"},
        {QStringLiteral("capture_fenetre"), "WT"},
    };
    return table;
}

struct Mot {
    QString texte;
    bool guillemets = false;
};

class LecteurLigne
{
public:
    LecteurLigne(QString ligne, const QString &endroit) : m_ligne(std::move(ligne)), m_endroit(endroit) {}

    std::optional<Mot> suivant(bool chemin)
    {
        while (m_rang < m_ligne.size() && m_ligne[m_rang].isSpace())
            ++m_rang;
        if (m_rang >= m_ligne.size() || m_ligne[m_rang] == u'#')
            return std::nullopt;
        if (m_ligne[m_rang] == u'"')
            return texte(chemin);
        const qsizetype debut = m_rang;
        while (m_rang < m_ligne.size() && !m_ligne[m_rang].isSpace() && m_ligne[m_rang] != u'#' &&
               m_ligne[m_rang] != u'"')
            ++m_rang;
        return Mot{m_ligne.mid(debut, m_rang - debut), false};
    }

private:
    Mot texte(bool chemin)
    {
        QString valeur;
        for (++m_rang; m_rang < m_ligne.size(); ++m_rang) {
            const QChar c = m_ligne[m_rang];
            if (c == u'"') {
                ++m_rang;
                return {valeur, true};
            }
            if (c == u'\\' && !chemin && m_rang + 1 < m_ligne.size()) {
                const QChar suite = m_ligne[m_rang + 1];
                if (suite == u'n' || suite == u'"' || suite == u'\\') {
                    valeur += suite == u'n' ? QChar(u'\n') : suite;
                    ++m_rang;
                    continue;
                }
            }
            valeur += c;
        }
        throw ScenarioIllisible(m_endroit + QStringLiteral("texte sans guillemet final"));
    }

    QString m_ligne;
    QString m_endroit;
    qsizetype m_rang = 0;
};

bool estChemin(const QByteArray &forme)
{
    return forme.contains('P') || forme.contains('Q');
}

void verifierTexte(const Pas &pas, const QString &endroit)
{
    if (pas.verbe == QLatin1String("horloge") &&
        !QDateTime::fromString(pas.texte(0), QStringLiteral("yyyy-MM-dd hh:mm")).isValid())
        throw ScenarioIllisible(endroit + QStringLiteral("date attendue sous la forme \"2026-01-31 10:00\""));
    static const QStringList reponses = {QStringLiteral("Oui"), QStringLiteral("Non"), QStringLiteral("OK"),
                                         QStringLiteral("Annuler")};
    const int rang = pas.verbe == QLatin1String("reponse")    ? 0
                     : pas.verbe == QLatin1String("question") ? 1
                                                              : -1;
    if (rang >= 0 && !reponses.contains(pas.texte(rang)))
        throw ScenarioIllisible(endroit + QStringLiteral("réponse inconnue : ") + pas.texte(rang));
    static const QRegularExpression couleur(QStringLiteral("^#[0-9A-Fa-f]{6}$"));
    if (pas.verbe == QLatin1String("couleur") && !pas.annuler && !couleur.match(pas.texte(0)).hasMatch())
        throw ScenarioIllisible(endroit + QStringLiteral("couleur attendue sous la forme \"#RRGGBB\""));
}

// One argument by its letter, appended to the step.
void lireArgument(Pas &pas, char lettre, const Mot &mot, const QString &endroit)
{
    const auto refuser = [&](const QString &attendu) {
        throw ScenarioIllisible(endroit + attendu + QStringLiteral(" attendu, et non : ") + mot.texte);
    };
    static const QRegularExpression nom(QStringLiteral("^[A-Za-z_][A-Za-z0-9_]*$"));
    static const QRegularExpression nombre(QStringLiteral("^[0-9]{1,9}$"));
    switch (lettre) {
    case 'C': {
        const QStringList noms = mot.texte.split(u'.');
        if (mot.guillemets || noms.size() != 2 || !nom.match(noms[0]).hasMatch() ||
            !nom.match(noms[1]).hasMatch())
            refuser(QStringLiteral("FORM.CONTROL"));
        pas.arguments << noms;
        return;
    }
    case 'W':
    case 'M':
        if (mot.guillemets || !nom.match(mot.texte).hasMatch())
            refuser(QStringLiteral("nom"));
        break;
    case 'N':
        if (mot.guillemets || !nombre.match(mot.texte).hasMatch())
            refuser(QStringLiteral("nombre"));
        break;
    case 'Q':
    case 'R':
        if (!mot.guillemets && mot.texte == QLatin1String("annuler")) {
            pas.annuler = true;
            return;
        }
        [[fallthrough]];
    default:
        if (!mot.guillemets)
            refuser(QStringLiteral("texte entre guillemets"));
    }
    pas.arguments << mot.texte;
}

std::optional<Pas> lirePas(const QString &ligne, int numero, const QString &nom)
{
    const QString endroit = nom + u':' + QString::number(numero) + QStringLiteral(": ");
    LecteurLigne lecteur(ligne, endroit);
    const std::optional<Mot> verbe = lecteur.suivant(false);
    if (!verbe)
        return std::nullopt;
    Pas pas;
    pas.ligne = numero;
    pas.verbe = verbe->texte;
    const auto forme = formes().constFind(pas.verbe);
    if (verbe->guillemets || forme == formes().constEnd())
        throw ScenarioIllisible(endroit + QStringLiteral("pas inconnu : ") + pas.verbe);
    for (const char lettre : forme.value()) {
        const bool facultatif = lettre >= 'a';
        const std::optional<Mot> mot = lecteur.suivant(estChemin(forme.value()));
        if (!mot && facultatif)
            break;
        if (!mot)
            throw ScenarioIllisible(endroit + QStringLiteral("argument manquant après ") + pas.verbe);
        lireArgument(pas, facultatif ? static_cast<char>(lettre - 'a' + 'A') : lettre, *mot, endroit);
    }
    if (const std::optional<Mot> reste = lecteur.suivant(false))
        throw ScenarioIllisible(endroit + QStringLiteral("argument en trop : ") + reste->texte);
    verifierTexte(pas, endroit);
    return pas;
}
} // namespace

Scenario lireScenario(const QString &chemin)
{
    QFile fichier(chemin);
    if (!fichier.open(QIODevice::ReadOnly))
        throw ScenarioIllisible(chemin + QStringLiteral(": ") + fichier.errorString());
    return lireScenario(chemin, QFileInfo(chemin).absolutePath(), QString::fromUtf8(fichier.readAll()));
}

Scenario lireScenario(const QString &nom, const QString &dossier, const QString &contenu)
{
    Scenario scenario;
    scenario.nom = nom;
    scenario.dossier = dossier;
    const QStringList lignes = contenu.split(u'\n');
    for (qsizetype i = 0; i < lignes.size(); ++i) {
        QString ligne = lignes[i];
        if (i == 0 && ligne.startsWith(QChar(0xFEFF)))
            ligne.remove(0, 1);
        if (const std::optional<Pas> pas = lirePas(ligne, static_cast<int>(i) + 1, nom))
            scenario.pas << *pas;
    }
    return scenario;
}
