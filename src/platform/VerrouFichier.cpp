#include "platform/VerrouFichier.h"

#include "platform/Erreur.h"
#include "platform/FichierSur.h"

#include <QFile>

#ifdef Q_OS_WIN
#include <windows.h>
#else
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#endif

namespace
{
[[noreturn]] void occupe(int numero)
{
    throw Erreur(numero,
                 QStringLiteral("Le fichier est utilisé par un autre programme. Fermez ce programme, puis "
                                "recommencez."));
}
} // namespace

#ifdef Q_OS_WIN

// Others may read; whoever has the file open for writing, or wants to, is in the way.
VerrouFichier::VerrouFichier(const QString &chemin)
{
    const HANDLE poignee =
        CreateFileW(reinterpret_cast<const wchar_t *>(chemin.utf16()), GENERIC_READ | GENERIC_WRITE,
                    FILE_SHARE_READ, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (poignee == INVALID_HANDLE_VALUE) {
        const auto numero = static_cast<int>(GetLastError());
        if (numero == ERROR_SHARING_VIOLATION || numero == ERROR_LOCK_VIOLATION)
            occupe(numero);
        throw Erreur(numero, FichierSur::raison(numero));
    }
    m_poignee = poignee;
}

void VerrouFichier::liberer()
{
    if (m_poignee)
        CloseHandle(m_poignee);
    m_poignee = nullptr;
}

#else

// Programs of this system lock in one of two ways that do not see each other: both are tried, one is kept.
VerrouFichier::VerrouFichier(const QString &chemin)
    : m_descripteur(::open(QFile::encodeName(chemin).constData(), O_RDWR | O_CLOEXEC))
{
    if (m_descripteur < 0)
        throw Erreur(errno, FichierSur::raison(errno));
    struct flock demande = {};
    demande.l_type = F_WRLCK;
    demande.l_whence = SEEK_SET;
    const bool dUnAutre = ::fcntl(m_descripteur, F_GETLK, &demande) == 0 && demande.l_type != F_UNLCK;
    if (dUnAutre || (::flock(m_descripteur, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK)) {
        liberer();
        occupe(EBUSY);
    }
}

void VerrouFichier::liberer()
{
    if (m_descripteur >= 0)
        ::close(m_descripteur);
    m_descripteur = -1;
}

#endif

VerrouFichier::~VerrouFichier()
{
    liberer();
}
