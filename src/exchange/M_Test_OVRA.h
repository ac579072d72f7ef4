// Checks that a workbook has the columns of its layout, before anything is read from it.
#pragma once

#include "exchange/DispositionExcel.h"

class Feuille;
struct Session;

namespace M_Test_OVRA
{
// What the checks answer.
inline constexpr int FORMAT_RECONNU = 1;
inline constexpr int FORMAT_REFUSE = 2;

// Each opens session.importSession.FichierImport, stores the positions of its columns in ColonnesExcel, sets FormatTeste
// when every obligatory one was found, and closes the workbook. A refusal has been told to the user. A workbook that
// cannot be opened is an Erreur.
int TesterFormatPhysico(Session &session);
int TesterFormatHydro(Session &session);
int TesterFormatPluvio(Session &session);
// The same for the workbook of actor codes at this host path; `colonnes` takes the positions.
int TesterFormatIntervenant(Session &session, const QString &fichier, ColonnesReconnues &colonnes);

// The shape of them all, on a sheet that is open already.
int testerFeuille(Session &session, const Feuille &feuille, const DispositionExcel &disposition,
                  ColonnesReconnues &colonnes);
// The headers of a sheet.
QStringList entetes(const Feuille &feuille);
} // namespace M_Test_OVRA
