#include "exchange/M_Import_OVRA.h"

#include "exchange/ArretImport.h"
#include "exchange/EcritureHydro.h"
#include "exchange/EcriturePhysico.h"
#include "exchange/EcriturePluvio.h"
#include "exchange/TransactionLigne.h"
#include "frame/Session.h"

#include <memory>

namespace
{
// The steps of a row: checked against `references` by `lire`, then sought and written by an Ecriture, in one go: a
// program killed in between leaves nothing of the row.
template <class Ecriture, class Mesure, class References>
TravailImport::Etapes etapes(const DataEnvironment1 &donnees, References references,
                             Mesure (*lire)(const LigneExcel &, const References &))
{
    const auto ecriture = std::make_shared<Ecriture>(donnees);
    const auto transactions = std::make_shared<Transactions>(donnees);
    return [transactions, references = std::move(references), ecriture, lire](const LigneExcel &ligne,
                                                                              bool remplacer) {
        const Mesure mesure = lire(ligne, references);
        TransactionLigne transaction(*transactions);
        const qint64 numero = ecriture->chercher(mesure);
        if (numero != 0 && !remplacer) {
            ArretImport arret;
            arret.genre = ArretImport::Genre::DejaImporte;
            throw arret;
        }
        ecriture->ecrire(mesure, numero);
        transaction.valider();
    };
}
} // namespace

IssueImport M_Import_OVRA::ImporterPhysico(Session &session)
{
    const DataEnvironment1 &donnees = session.donnees;
    return executerImport(
        session,
        {dispositionPhysico(),
         static_cast<int>(ChampPhysico::CodeAgence),
         {QStringLiteral("Aucune mesure physico-chimique n'a été enregistrée. "),
          QStringLiteral(" mesure physico-chimique a été enregistrée. "),
          QStringLiteral(" mesures physico-chimiques ont été enregistrées. ")},
         [&] { return etapes<EcriturePhysico>(donnees, lireReferencesPhysico(donnees), lireLignePhysico); }});
}

IssueImport M_Import_OVRA::ImporterHydro(Session &session)
{
    const DataEnvironment1 &donnees = session.donnees;
    return executerImport(
        session,
        {dispositionHydro(),
         static_cast<int>(ChampHydro::Station),
         {QStringLiteral("Aucune mesure hydrométrique n'a été enregistrée. "),
          QStringLiteral(" mesure hydrométrique a été enregistrée. "),
          QStringLiteral(" mesures hydrométriques ont été enregistrées. ")},
         [&] { return etapes<EcritureHydro>(donnees, lireReferencesHydro(donnees), lireLigneHydro); }});
}

IssueImport M_Import_OVRA::ImporterPluvio(Session &session)
{
    const DataEnvironment1 &donnees = session.donnees;
    return executerImport(
        session,
        {dispositionPluvio(),
         static_cast<int>(ChampPluvio::Station),
         {QStringLiteral("Aucune mesure pluviométrique n'a été enregistrée. "),
          QStringLiteral(" mesure pluviométrique a été enregistrée. "),
          QStringLiteral(" mesures pluviométriques ont été enregistrées. ")},
         [&] { return etapes<EcriturePluvio>(donnees, lireReferencesPluvio(donnees), lireLignePluvio); }});
}
