// ovralis-lecteur-jet: reads one Jet file for the program and tells it on its standard output (see Protocole.h).
//
// libmdb was not made for damaged files: some make it crash, turn for ever or take all the memory. So it lives in this
// process of its own, which the program can lose without harm.
#include "database/jet/lecteur/FichierJet.h"
#include "platform/Limites.h"

#include <cstring>
#include <new>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#endif

namespace
{
constexpr std::uint64_t MEMOIRE = 1ULL << 30;
// A file of Jet's greatest size, 2 GB, takes about two minutes.
constexpr std::uint64_t SECONDES = 600;

int echouer(Sortie &sortie, ProtocoleJet::Motif motif, const std::string &table)
{
    sortie.commencer(ProtocoleJet::Genre::Echec);
    sortie.octet(static_cast<std::uint8_t>(motif));
    sortie.texte(table);
    sortie.finir();
    sortie.vider();
    return 1;
}
} // namespace

int main(int argc, char *argv[])
{
    const bool structureSeule = argc == 3 && std::strcmp(argv[1], "--structure") == 0;
    if (!structureSeule && !(argc == 3 && std::strcmp(argv[1], "--lignes") == 0))
        return 2;
#ifdef _WIN32
    _setmode(_fileno(stdout), _O_BINARY);
#endif
    limiterCeProcessus(MEMOIRE, SECONDES);
    Sortie sortie;
    try {
        FichierJet fichier(argv[2]);
        fichier.ecrireStructure(sortie);
        if (!structureSeule)
            fichier.ecrireLignes(sortie);
        return 0;
    } catch (const EchecLecture &echec) {
        return echouer(sortie, echec.motif(), echec.table());
    } catch (const std::bad_alloc &) {
        return echouer(sortie, ProtocoleJet::Motif::Interne, {});
    }
}
