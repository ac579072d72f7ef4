// What fuzz programs share: their arguments and ways of spoiling bytes.
#pragma once

#include <cstdio>
#include <QByteArray>
#include <QCoreApplication>
#include <QRandomGenerator>
#include <QStringList>

// --nombre N (100), --graine S (drawn and printed): a failure can be played again by its seed.
struct ReglagesFuzz {
    int nombre = 100;
    quint32 graine = QRandomGenerator::global()->generate();

    ReglagesFuzz()
    {
        const QStringList arguments = QCoreApplication::arguments();
        for (qsizetype i = 1; i + 1 < arguments.size(); i += 2) {
            if (arguments[i] == QLatin1String("--nombre"))
                nombre = arguments[i + 1].toInt();
            else if (arguments[i] == QLatin1String("--graine"))
                graine = arguments[i + 1].toUInt();
        }
        std::printf("graine %u, %d essais\n", graine, nombre);
        std::fflush(stdout);
    }
};

class Gacheur
{
public:
    explicit Gacheur(quint32 graine) : m_hasard(graine) {}

    int tirer(qsizetype bornes) { return static_cast<int>(m_hasard.bounded(static_cast<quint32>(bornes))); }

    // Noise, flipped bits and numbers of the kind that lengths and addresses trip over, one to eight times.
    void octets(QByteArray &b, qsizetype debut, qsizetype longueur)
    {
        static constexpr quint32 PIEGES[] = {0,          1,          0x7f,      0x80,   0xff,
                                             0xfff,      0x1000,     0x7fff,    0xffff, 0x7fffffff,
                                             0x80000000, 0x40000000, 0xffffffff};
        for (int fois = 1 + tirer(8); fois > 0 && longueur > 0; --fois) {
            const qsizetype p = debut + tirer(longueur);
            switch (tirer(3)) {
            case 0:
                b[p] = static_cast<char>(tirer(256));
                break;
            case 1:
                b[p] = static_cast<char>(b[p] ^ (1 << tirer(8)));
                break;
            default: {
                const quint32 piege = PIEGES[tirer(std::size(PIEGES))];
                const int taille = 1 << tirer(3);
                for (int i = 0; i < taille && p + i < debut + longueur; ++i)
                    b[p + i] = static_cast<char>((piege >> (8 * i)) & 0xff);
            }
            }
        }
    }

    // Some of the pages of a file: bytes, a page over another, a blank page, a shorter file.
    void pages(QByteArray &b, qsizetype taillePage)
    {
        const qsizetype nombre = b.size() / taillePage;
        const auto page = [&] { return taillePage * tirer(nombre); };
        for (int fois = 1 + tirer(4); fois > 0; --fois) {
            const int genre = tirer(12);
            if (genre == 0) {
                const QByteArray autre = b.mid(page(), taillePage);
                b.replace(page(), taillePage, autre);
            } else if (genre == 1) {
                b.replace(page(), taillePage, QByteArray(taillePage, '\0'));
            } else {
                octets(b, page(), taillePage);
            }
        }
        if (tirer(40) == 0)
            b.truncate(page());
    }

private:
    QRandomGenerator m_hasard;
};
