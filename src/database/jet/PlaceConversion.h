// Where a converted study stands until it is accepted, and how it takes the place of its Access file.
#pragma once

#include "platform/VerrouFichier.h"

#include <memory>
#include <QDateTime>
#include <QString>

// The new store is written beside the Access file, under a name of its own. To put it in place, the Access file is first
// given a second name, "…_old97.mdb", then the store is renamed onto the chosen name: at every moment that name is a
// whole file, the old one or the new one, and what a kill leaves behind the next conversion takes away. See docs/jet.md.
class PlaceConversion
{
public:
    // Holds the file, which stays as it is. An Erreur, in French, where it or its folder cannot be written, or where
    // another program uses it.
    explicit PlaceConversion(const QString &fichierJet);
    // Gives up what was not put in place.
    ~PlaceConversion();
    PlaceConversion(const PlaceConversion &) = delete;
    PlaceConversion &operator=(const PlaceConversion &) = delete;

    // The host path of the Access file itself, behind links.
    const QString &fichier() const { return m_fichier; }
    // Where the store is to be written; an empty file is there.
    QString provisoire() const;

    // The store, closed and whole, takes the place of the Access file. A different "…_old97.mdb" that is there is first
    // renamed with its date. An Erreur leaves everything as it was.
    void mettreEnPlace();

    // "etude_old97.mdb" for "etude.mdb", whatever the case of its extension; of any other name, the name and that end.
    static QString nomDeLAncien(const QString &fichierJet);

private:
    void verifierFichier() const;
    void oublierProvisoire() const noexcept;
    QString ecarterAncien() const;

    QString m_fichier;
    std::unique_ptr<VerrouFichier> m_verrou;
    qint64 m_taille = 0;
    QDateTime m_modifie;
};
