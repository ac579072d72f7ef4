// The workbook layer's figures: start, template round trip, and a 60 000-row workbook written, saved, opened and read.
#include "workbook/Tableur.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTextStream>

namespace
{
constexpr int LIGNES = 60'000;
constexpr int COLONNES = 16;
constexpr int LIGNES_PAR_LECTURE = 5'000;

// Highest resident memory of a process in MB; 0 where the system does not tell.
qint64 memoireMax(const QString &processus)
{
    QFile etat(QStringLiteral("/proc/%1/status").arg(processus));
    if (!etat.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &ligne : etat.readAll().split('\n')) {
        if (ligne.startsWith("VmHWM:"))
            return ligne.simplified().split(' ').at(1).toLongLong() / 1024;
    }
    return 0;
}

Valeurs mesures()
{
    Valeurs lot;
    lot.reserve(LIGNES);
    for (int l = 0; l < LIGNES; ++l)
        lot.append({QStringLiteral("0500%1").arg(l % 50), QStringLiteral("Station"),
                    QDate(2000, 1, 1).addDays(l % 3000), QTime(10, 30), QStringLiteral("Nitrates"), l * 0.5,
                    1, 23, QStringLiteral("commentaire %1").arg(l), QStringLiteral("mg/L"), 0.5,
                    QStringLiteral("calendaire"), QStringLiteral("Gestionnaire"), QStringLiteral("Préleveur"),
                    QStringLiteral("Laboratoire"), QStringLiteral("Réseau")});
    return lot;
}
} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    QTextStream sortie(stdout);
    const QTemporaryDir dossier;
    QElapsedTimer chrono;
    const auto dire = [&](const char *quoi) {
        sortie << QStringLiteral("%1 %2 ms\n")
                      .arg(QString::fromUtf8(quoi), -42)
                      .arg(chrono.nsecsElapsed() / 1e6, 9, 'f', 1);
        sortie.flush();
        chrono.restart();
    };

    Tableur tableur;
    chrono.start();
    tableur.demarrerEnAvance();
    dire("demarrerEnAvance");
    auto classeur = tableur.ajouter();
    dire("instance prête, premier classeur");

    const QString petit = dossier.filePath(QStringLiteral("petit.xls"));
    classeur->feuille(1).plage(1, 1, 60, 6).ecrire(QStringLiteral("cellule"));
    classeur->enregistrerSous(petit);
    classeur->fermer();
    chrono.restart();
    classeur = tableur.ouvrir(petit);
    classeur->enregistrerSous(dossier.filePath(QStringLiteral("rapport.xls")));
    classeur->enregistrer();
    classeur->fermer();
    dire("modèle ouvert, enregistré deux fois, fermé");

    const QString gros = dossier.filePath(QStringLiteral("gros.xls"));
    classeur = tableur.ajouter();
    {
        const Valeurs lot = mesures();
        chrono.restart();
        classeur->feuille(1).plage(1, 1, LIGNES, COLONNES).ecrire(lot);
    }
    dire("60 000 x 16 cellules écrites");
    classeur->enregistrerSous(gros);
    dire("enregistrées");
    classeur->fermer();
    chrono.restart();
    classeur = tableur.ouvrir(gros, true);
    dire("classeur ouvert");
    const Feuille feuille = classeur->feuille(1);
    const int derniere = feuille.derniereLigne();
    for (int l = 1; l <= derniere; l += LIGNES_PAR_LECTURE)
        feuille.plage(l, 1, qMin(derniere, l + LIGNES_PAR_LECTURE - 1), COLONNES).valeurs();
    dire("60 000 x 16 cellules lues");
    sortie << "mémoire : " << memoireMax(QStringLiteral("self")) << " Mo ici, "
           << memoireMax(QString::number(tableur.numeroProcessus())) << " Mo dans le tableur\n";
    return 0;
}
