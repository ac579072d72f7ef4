// Codes of the national water data dictionary and the labels that stand for them on screens. The tables of the database
// hold the codes, but for NatureParam, which holds the label.
#pragma once

#include <QString>

namespace M_Sandrification
{
// 1 "Suivi calendaire", 2 "Suivi pluie", 0 anything else.
int CodeProtocole(const QString &libelle);
// "Non spécifié" for anything but "1" and "2".
QString LibelleProtocole(const QString &code);
// "CHI", "ENV", "HYD", "MIC", "PHY", "SYN"; " " for anything else.
QString CodeNature(const QString &libelle);
QString LibelleNature(const QString &code);
// "1" "In situ", "2" "Laboratoire", "3" "Sans objet", "0" anything else.
QString CodeLieuAnalyse(const QString &libelle);
// "Localisation inconnue" for anything else.
QString LibelleLieuAnalyse(const QString &code);
// "A" "Automatique", "M" "Manuelle", "0" anything else.
QString CodeNatureStation(const QString &libelle);
// " " for anything else.
QString LibelleNatureStation(const QString &code);
} // namespace M_Sandrification
