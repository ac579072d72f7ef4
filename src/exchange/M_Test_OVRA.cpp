#include "exchange/M_Test_OVRA.h"

#include "frame/Session.h"
#include "platform/FichierLisible.h"

namespace
{
// The bar counts the sixteen columns of the widest layout, and one.
constexpr int ECHELLE_TEST = 17;

// The progress window and the waiting cursor, for as long as it lives.
class AttenteTest
{
public:
    explicit AttenteTest(Session &session)
        : m_dialogue(session.dialogue), m_progression(m_dialogue.progression(FenetreProgression::FProgress))
    {
        m_progression.montrer(QStringLiteral("Test du format du fichier Excel"), {});
        m_dialogue.sablier(true);
    }
    ~AttenteTest()
    {
        m_progression.cacher();
        m_dialogue.sablier(false);
    }
    AttenteTest(const AttenteTest &) = delete;
    AttenteTest &operator=(const AttenteTest &) = delete;

private:
    Dialogue &m_dialogue;
    Progression &m_progression;
};

int testerFichier(Session &session, const QString &fichier, const DispositionExcel &disposition,
                  ColonnesReconnues &colonnes)
{
    AttenteTest attente(session);
    verifierLisible(fichier);
    const std::unique_ptr<Classeur> classeur = session.tableur.ouvrir(fichier, true);
    return M_Test_OVRA::testerFeuille(session, classeur->feuille(1), disposition, colonnes);
}

int testerImport(Session &session, const DispositionExcel &disposition)
{
    ImportSession &import = session.importSession;
    const int resultat = testerFichier(session, import.FichierImport, disposition, import.ColonnesExcel);
    import.FormatTeste = resultat == M_Test_OVRA::FORMAT_RECONNU;
    return resultat;
}
} // namespace

QStringList M_Test_OVRA::entetes(const Feuille &feuille)
{
    const int derniere = feuille.derniereColonne();
    if (derniere == 0)
        return {};
    return entetesDeLigne(feuille.plage(1, 1, 1, derniere).valeurs().value(0));
}

int M_Test_OVRA::testerFeuille(Session &session, const Feuille &feuille, const DispositionExcel &disposition,
                               ColonnesReconnues &colonnes)
{
    Progression &progression = session.dialogue.progression(FenetreProgression::FProgress);
    progression.maximum(ECHELLE_TEST);
    int reconnues = 0;
    const Reconnaissance resultat =
        reconnaitre(entetes(feuille), disposition, [&] { progression.valeur(++reconnues); });
    colonnes = resultat.colonnes;
    if (resultat.complete())
        return FORMAT_RECONNU;
    progression.cacher();
    session.dialogue.sablier(false);
    session.dialogue.message(resultat.message(), QStringLiteral("Erreur de fichier"), Icone::Exclamation);
    return FORMAT_REFUSE;
}

int M_Test_OVRA::TesterFormatPhysico(Session &session)
{
    return testerImport(session, dispositionPhysico());
}

int M_Test_OVRA::TesterFormatHydro(Session &session)
{
    return testerImport(session, dispositionHydro());
}

int M_Test_OVRA::TesterFormatPluvio(Session &session)
{
    return testerImport(session, dispositionPluvio());
}

int M_Test_OVRA::TesterFormatIntervenant(Session &session, const QString &fichier,
                                         ColonnesReconnues &colonnes)
{
    return testerFichier(session, fichier, dispositionIntervenant(), colonnes);
}
