// Holding a file so that no other program changes it meanwhile.
#pragma once

#include <QString>

// While it lives, a second one on the same file cannot be had, in this process or another. An Erreur tells why the file
// cannot be held: used by another program that locks it, not to be opened for writing.
class VerrouFichier
{
public:
    explicit VerrouFichier(const QString &chemin);
    ~VerrouFichier();
    VerrouFichier(const VerrouFichier &) = delete;
    VerrouFichier &operator=(const VerrouFichier &) = delete;

    void liberer();

private:
#ifdef Q_OS_WIN
    void *m_poignee = nullptr;
#else
    int m_descripteur = -1;
#endif
};
