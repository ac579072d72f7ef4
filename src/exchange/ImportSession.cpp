#include "exchange/ImportSession.h"

void ImportSession::viderCompteurs()
{
    RemplacerTout = false;
    NbEnregistres = 0;
    FormatTeste = false;
}
