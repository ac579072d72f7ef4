#include "exchange/ImportSession.h"

#include "platform/Chemins.h"

bool ImportSession::donneDesCodes() const
{
    return typeImport == TypeImport::Trames || typeImport == TypeImport::TramesBis ||
           typeImport == TypeImport::StationsTrames || typeImport == TypeImport::Quesu;
}

void ImportSession::viderCompteurs()
{
    RemplacerTout = false;
    NbEnregistres = 0;
    FormatTeste = false;
}

void ImportSession::commencer(const QString &fichier, TypeImport type)
{
    if (!FichierInterrompu.isEmpty() && FichierInterrompu != fichier) {
        LigneReprise = 0;
        LigneMaxProgression = 0;
    }
    FichierInterrompu.clear();
    FichierImport = fichier;
    TitreImport = Chemins::titre(fichier);
    DossierFichier = Chemins::dossier(fichier);
    typeImport = type;
    LigneIgnoree = false;
    viderCompteurs();
}
