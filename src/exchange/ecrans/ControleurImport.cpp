#include "exchange/ecrans/ControleurImport.h"

#include "exchange/ecrans/EcranReprise.h"
#include "exchange/ecrans/F_Choix.h"
#include "exchange/ecrans/F_Choix_unite.h"
#include "exchange/ecrans/F_Import_Remplace.h"
#include "exchange/M_Import_OVRA.h"
#include "frame/Cadre.h"
#include "frame/Session.h"

#include <map>

namespace
{
using Lecteur = std::function<void(Session &, Cadre &)>;

Lecteur classeur(IssueImport (*importer)(Session &))
{
    return [importer](Session &session, Cadre &cadre) {
        ControleurImport::montrerIssue(session, cadre, importer(session));
    };
}

// The routine of each kind of import.
const std::map<TypeImport, Lecteur> &lecteurs()
{
    static const std::map<TypeImport, Lecteur> table = {
        {TypeImport::Physico, classeur(M_Import_OVRA::ImporterPhysico)},
        {TypeImport::PhysicoBis, classeur(M_Import_OVRA::ImporterPhysico)},
        {TypeImport::Hydro, classeur(M_Import_OVRA::ImporterHydro)},
        {TypeImport::Pluvio, classeur(M_Import_OVRA::ImporterPluvio)},
    };
    return table;
}

TypeImport typeDuFichier(const QString &titre)
{
    static const QStringList CLASSEURS = {QStringLiteral("xls"), QStringLiteral(".xlsx"),
                                          QStringLiteral(".ods")};
    const auto finitPar = [&](const QString &fin) { return titre.endsWith(fin, Qt::CaseInsensitive); };
    if (std::any_of(CLASSEURS.begin(), CLASSEURS.end(), finitPar))
        return TypeImport::Physico;
    return finitPar(QStringLiteral("xml")) ? TypeImport::Quesu : TypeImport::Trames;
}

void commencer(Session &session, Cadre &cadre, const QString &fichier, TypeImport type)
{
    session.importSession.commencer(fichier, type);
    EcranReprise::fermerTous(session);
    ControleurImport::RelancerImport(session, cadre);
}

void demanderEtImporter(Session &session, Cadre &cadre, TypeImport type)
{
    session.importSession.viderCompteurs();
    // Ready by the time that a file is chosen.
    session.tableur.demarrerEnAvance();
    const std::optional<QString> fichier = ControleurImport::choisirFichier(
        session, QStringLiteral("Excel (*.xls)|*.xls|Excel et OpenDocument (*.xlsx, *.ods)|*.xlsx;*.ods"));
    if (fichier)
        commencer(session, cadre, *fichier, type);
}
} // namespace

std::optional<QString> ControleurImport::choisirFichier(Session &session, const QString &filtre)
{
    DemandeFichier demande;
    demande.titre = QStringLiteral("Choisissez le fichier à importer");
    demande.filtre = filtre;
    demande.dossierInitial = session.importSession.DossierFichier;
    if (demande.dossierInitial.isEmpty())
        demande.dossierInitial = session.CheminBase;
    return session.dialogue.choisirFichier(demande);
}

bool ControleurImport::lecteurDisponible(TypeImport type)
{
    return lecteurs().count(type) > 0;
}

void ControleurImport::importerHydro(Session &session, Cadre &cadre)
{
    demanderEtImporter(session, cadre, TypeImport::Hydro);
}

void ControleurImport::importerPluvio(Session &session, Cadre &cadre)
{
    demanderEtImporter(session, cadre, TypeImport::Pluvio);
}

void ControleurImport::importerFichier(Session &session, Cadre &cadre, const QString &fichier)
{
    commencer(session, cadre, fichier, typeDuFichier(Chemins::titre(fichier)));
}

void ControleurImport::RelancerImport(Session &session, Cadre &cadre)
{
    ImportSession &import = session.importSession;
    if (import.donneDesCodes())
        import.ElementNom.clear();
    const auto lecteur = lecteurs().find(import.typeImport);
    if (lecteur == lecteurs().end()) {
        session.dialogue.message(
            QStringLiteral(
                "Le format du fichier « %1 » ne peut pas encore être importé. Seuls les classeurs .xls, "
                ".xlsx et .ods peuvent l'être.")
                .arg(import.TitreImport),
            QStringLiteral("Attention"), Icone::Exclamation);
        return;
    }
    lecteur->second(session, cadre);
}

void ControleurImport::montrerIssue(Session &session, Cadre &cadre, const IssueImport &issue)
{
    switch (issue.fin) {
    case IssueImport::Fin::Terminee:
    case IssueImport::Fin::Arretee:
        return;
    case IssueImport::Fin::Choix: {
        auto *choix = new F_Choix(session, cadre, issue.libelleAction, issue.element,
                                  ficheAjout(session.importSession.typeElement));
        choix->AfficherChoix(issue.mode);
        cadre.montrer(choix);
        return;
    }
    case IssueImport::Fin::ChoixUnite:
        cadre.montrer(new F_Choix_unite(session, cadre));
        return;
    case IssueImport::Fin::Remplacement:
        cadre.montrer(new F_Import_Remplace(session, cadre));
        return;
    }
}
