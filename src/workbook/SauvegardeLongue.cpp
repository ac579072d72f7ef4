#include "workbook/SauvegardeLongue.h"

#include "workbook/DonneesClasseur.h"
#include "workbook/Enregistrement.h"

void SauvegardeLongue::enregistrerSous(Classeur &classeur, const QString &cheminHote,
                                       const Patience &patience)
{
    const std::shared_ptr<Classeur::Donnees> donnees = classeur.feuille(1).donnees().classeur;
    ecrireClasseur(*donnees, cheminHote, filtrePour(cheminHote), &patience);
    donnees->chemin = cheminHote;
    donnees->lectureSeule = false;
}
