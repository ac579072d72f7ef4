#include "capture/ecrans/FicheActeur.h"

#include "capture/FichesIntervenants.h"
#include "widgets/ZoneComboLibre.h"

void FicheActeur::remplirListes()
{
    findChild<ZoneComboLibre *>(QStringLiteral("cmb_statut"))
        ->remplir(LectureFiche::valeursConnues(session().donnees, QStringLiteral("INTERVENANT"),
                                               QStringLiteral("StatutInterv")));
}

std::optional<RefusFiche> FicheActeur::refusSaisie() const
{
    if (!chargee())
        return std::nullopt;
    const QString faute = FichesIntervenants::fauteCode(session().donnees, description(), chargee()->cle,
                                                        valeurs().value(QStringLiteral("CodeSandreInterv")));
    if (faute.isEmpty())
        return std::nullopt;
    return RefusFiche{faute, QStringLiteral("Attention"), QStringLiteral("txt_code")};
}
