// A study of a former version is upgraded on a copy of its file, which takes the file's place once it is accepted.
#pragma once

#include <QString>

// A refused or failed upgrade leaves the file byte for byte; a kill at any moment leaves the old file or the new one.
class CopieDeTravail
{
public:
    // Copies the file, which nobody has open, beside itself. An Erreur where that cannot be.
    explicit CopieDeTravail(const QString &fichier);
    // Removes a copy that was not put in place.
    ~CopieDeTravail();
    CopieDeTravail(const CopieDeTravail &) = delete;
    CopieDeTravail &operator=(const CopieDeTravail &) = delete;

    // Whether the store at this path has something to be upgraded: no TECHNIQUE, or contents of version 4.0.0.
    static bool estUtile(const QString &fichier);

    QString chemin() const;
    // The copy, closed, takes the place of the file.
    void mettreEnPlace();

private:
    QString m_fichier;
};
