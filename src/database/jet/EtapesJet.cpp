#include "database/jet/EtapesJet.h"

#include "database/DataEnvironment1.h"
#include "database/jet/ConversionJet.h"
#include "database/jet/PlaceConversion.h"
#include "database/M_Ouvrir_bdd_OVRA.h"
#include "database/SondeBase.h"
#include "platform/Dialogue.h"
#include "platform/Erreur.h"
#include "platform/Textes.h"

namespace
{
constexpr int ERREUR_JET_ENDOMMAGE = 3049;
constexpr int ERREUR_FORMAT = 3343; // Jet's own number for a format that it does not know
constexpr qsizetype LONGUEUR_VERSION = 2;

// The property is missing in a file that Access never opened.
QString versionOuAvertir(Dialogue &dialogue, const LecteurJet &lecteur)
{
    if (const std::optional<QString> version = lecteur.accessVersion())
        return version->left(LONGUEUR_VERSION);
    dialogue.message(QStringLiteral("This database hasn't previously been opened with Microsoft Access."),
                     Textes::TITRE_PROGRAMME.toString());
    return {};
}

bool estTexte(TypeJet type)
{
    return type == TypeJet::Texte || type == TypeJet::Memo;
}

// The wait window, hidden on every way out.
class Attente
{
public:
    explicit Attente(Dialogue &dialogue) : m_fenetre(dialogue.progression(FenetreProgression::FProgress3))
    {
        m_fenetre.montrer(
            QStringLiteral("Conversion de la base de données"),
            QStringLiteral(
                "La base de données est au format Access 97 et il existe une version plus récente de "
                "Microsoft Access sur le poste. La base va être convertie.\nVeuillez patienter...."));
        m_fenetre.maximum(0);
    }
    ~Attente() { m_fenetre.cacher(); }
    Attente(const Attente &) = delete;
    Attente &operator=(const Attente &) = delete;

    void battre() { m_fenetre.valeur(0); }

private:
    Progression &m_fenetre;
};

// One opening of an Access file.
class Conversion
{
public:
    explicit Conversion(Dialogue &dialogue) : m_dialogue(dialogue) {}

    // Host path of the store to judge; empty once the user has been told that the file is refused.
    QString convertir(const QString &fichier)
    {
        m_place.reset();
        if (!LecteurJet::reconnaitre(fichier))
            throw Erreur(
                ERREUR_FORMAT,
                QStringLiteral("Ce fichier est au format d'Access 2007 ou d'une version plus récente. "
                               "Enregistrez-le depuis Access au format « Base de données Access 2002-2003 "
                               "(*.mdb) », puis ouvrez ce fichier."));
        m_place = std::make_unique<PlaceConversion>(fichier);
        try {
            return convertirEnPlace();
        } catch (const Erreur &erreur) {
            m_place.reset();
            if (erreur.numero() != ERREUR_JET_ENDOMMAGE)
                throw SondeBase::enFrancais(erreur);
            m_dialogue.message(erreur.description(), QStringLiteral("Erreur !"), Icone::Critique);
            return {};
        }
    }

    void terminer(bool acceptee)
    {
        const std::unique_ptr<PlaceConversion> place = std::move(m_place);
        if (!acceptee || !place)
            return;
        try {
            {
                DataEnvironment1 donnees;
                donnees.ouvrir(place->provisoire(), false);
                ConversionJet::completer(donnees);
            }
            place->mettreEnPlace();
        } catch (const Erreur &erreur) {
            throw SondeBase::enFrancais(erreur);
        }
    }

    bool codeReseauEstTexte() const { return m_codeReseauTexte; }

private:
    QString convertirEnPlace()
    {
        std::optional<Attente> attente;
        LecteurJet::Reglages reglages;
        reglages.battement = [&attente] {
            if (attente)
                attente->battre();
        };
        LecteurJet lecteur(m_place->fichier(), reglages);
        versionOuAvertir(m_dialogue, lecteur);
        if (!ConversionJet::estUneEtude(lecteur)) {
            m_place.reset();
            m_dialogue.message(QStringLiteral("Base non conforme !"), QStringLiteral("Attention !"),
                               Icone::Critique);
            return {};
        }
        const TableJet *reseaux = lecteur.table(QStringLiteral("RESEAU_MESURE"));
        m_codeReseauTexte =
            reseaux &&
            std::any_of(reseaux->colonnes.begin(), reseaux->colonnes.end(), [](const ColonneJet &c) {
                return c.nom.compare(QLatin1String("CodeReseau"), Qt::CaseInsensitive) == 0 &&
                       estTexte(c.type);
            });
        attente.emplace(m_dialogue);
        ConversionJet::convertir(lecteur, m_place->provisoire());
        return m_place->provisoire();
    }

    Dialogue &m_dialogue;
    std::unique_ptr<PlaceConversion> m_place;
    bool m_codeReseauTexte = false;
};
} // namespace

QString EtapesJet::LireVersionAccess(Dialogue &dialogue, const QString &chemin)
{
    try {
        LecteurJet::Reglages reglages;
        reglages.structureSeule = true;
        return versionOuAvertir(dialogue, LecteurJet(chemin, reglages));
    } catch (const Erreur &erreur) {
        dialogue.message(QStringLiteral("Error: %1\n%2").arg(erreur.numero()).arg(erreur.description()),
                         Textes::TITRE_PROGRAMME.toString());
        return {};
    }
}

void EtapesJet::brancher(EtapesOuverture &etapes, Dialogue &dialogue)
{
    const auto conversion = std::make_shared<Conversion>(dialogue);
    etapes.ConvertirBase97 = [conversion, &etapes](const QString &fichier) {
        // The store's own column is text whatever the file's was; a store that is opened later is judged on its own.
        etapes.CodeReseauEstTexte = [conversion] { return conversion->codeReseauEstTexte(); };
        return conversion->convertir(fichier);
    };
    etapes.TerminerConversion = [conversion](bool acceptee) { conversion->terminer(acceptee); };
    etapes.LireVersionJet = [&dialogue](const QString &fichier) {
        return LireVersionAccess(dialogue, fichier);
    };
}
