#include "exchange/ecrans/FichesAjout.h"

#include "capture/ecrans/F_Organisme_Preleveur.h"
#include "capture/ecrans/F_Saisie_BV.h"
#include "capture/ecrans/F_Saisie_Commune.h"
#include "capture/ecrans/F_Saisie_Gestionnaire.h"
#include "capture/ecrans/F_Saisie_Laboratoire.h"
#include "capture/ecrans/F_Saisie_Parametre.h"
#include "capture/ecrans/F_Saisie_Reseau.h"
#include "capture/ecrans/F_Saisie_Station_Hydro.h"
#include "capture/ecrans/F_Saisie_Station_Mesure.h"
#include "capture/ecrans/F_Saisie_Station_Pluvio.h"

#include <map>

namespace
{
const QString CODE = QStringLiteral("txt_code");
const QString NOM = QStringLiteral("txt_nom");

// Opens a sheet and lets `remplir` put in it what the import has met.
template <typename Fiche> OuvrirFiche fiche(void (*remplir)(Fiche &, const ImportSession &))
{
    return [remplir](Session &session, Cadre &cadre) {
        auto *ouverte = FicheReference::ouvrir<Fiche>(session, cadre, nullptr, OrigineSaisie::IMPORT, {},
                                                      FicheReference::MODE_IMPORT);
        remplir(*ouverte, session.importSession);
    };
}

// A workbook names what frames and XML documents give the code of.
const QString &champDeLElement(const ImportSession &import)
{
    return import.donneDesCodes() ? CODE : NOM;
}

template <typename Fiche> void parNomOuCode(Fiche &fiche, const ImportSession &import)
{
    fiche.proposer(champDeLElement(import), import.ElementNom);
}

void station(F_Saisie_Station_Mesure &fiche, const ImportSession &import)
{
    fiche.proposer(CODE, import.ElementCode);
    fiche.proposer(NOM, import.ElementNom);
}

// The files of flows and rainfall say one thing of a station.
template <typename Fiche> void stationDUnSeulNom(Fiche &fiche, const ImportSession &import)
{
    fiche.proposer(CODE, import.ElementNom);
    fiche.proposer(NOM, import.ElementNom);
}

void parametre(F_Saisie_Parametre &fiche, const ImportSession &import)
{
    parNomOuCode(fiche, import);
    fiche.proposer(QStringLiteral("cmb_unite"), import.ElementUnite);
}

// The unit of a known parameter: the sheet shows that parameter, whose import units are to be completed.
void parametreConnu(F_Saisie_Parametre &fiche, const ImportSession &import)
{
    fiche.montrerParametre(import.ElementParametre);
}

// A workbook names a network by its label: without it, the import would not find the new network again.
void reseau(F_Saisie_Reseau &fiche, const ImportSession &import)
{
    fiche.proposer(QStringLiteral("cmb_code"), import.ElementNom);
    if (!import.donneDesCodes())
        fiche.proposer(QStringLiteral("txt_libelle"), import.ElementNom);
}

template <typename Fiche> void parNom(Fiche &fiche, const ImportSession &import)
{
    fiche.proposer(NOM, import.ElementNom);
}
} // namespace

OuvrirFiche ficheAjout(TypeElement type)
{
    static const std::map<TypeElement, OuvrirFiche> fiches = {
        {TypeElement::StationQualite, fiche<F_Saisie_Station_Mesure>(station)},
        {TypeElement::StationHydro, fiche<F_Saisie_Station_Hydro>(stationDUnSeulNom)},
        {TypeElement::StationPluvio, fiche<F_Saisie_Station_Pluvio>(stationDUnSeulNom)},
        {TypeElement::Parametre, fiche<F_Saisie_Parametre>(parametre)},
        {TypeElement::ParametreParCode, fiche<F_Saisie_Parametre>(parametre)},
        {TypeElement::UniteDeParametre, fiche<F_Saisie_Parametre>(parametreConnu)},
        {TypeElement::Gestionnaire, fiche<F_Saisie_Gestionnaire>(parNomOuCode)},
        {TypeElement::Laboratoire, fiche<F_Saisie_Laboratoire>(parNomOuCode)},
        {TypeElement::Preleveur, fiche<F_Organisme_Preleveur>(parNomOuCode)},
        {TypeElement::Reseau, fiche<F_Saisie_Reseau>(reseau)},
        {TypeElement::Commune, fiche<F_Saisie_Commune>(parNom)},
        {TypeElement::CommuneTrames, fiche<F_Saisie_Commune>(parNom)},
        {TypeElement::Bassin, fiche<F_Saisie_BV>(parNom)},
    };
    const auto trouvee = fiches.find(type);
    return trouvee == fiches.end() ? OuvrirFiche() : trouvee->second;
}
