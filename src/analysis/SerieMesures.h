// The measures of a year or of a period as the statistics see them: sorted, and with a count of their own.
//
// The count n is a particular one, kept because the reports have always shown it. The measures stand in an array that
// has one entry for each record *read*, be it accepted or not (for the interannual block: one entry for each
// physico-chemical result of the whole base, whatever its station). The accepted records fill it from the first entry
// on, without gaps, so with A accepted records out of N the entries 1 to A hold a value and A+1 to N are empty.
//
// The array is sorted by exchanging entries, two by two, when the first is strictly above the second; a pair of which
// one entry is empty is left alone, and the first such pair, that one only, takes one off the count. Hence:
//
//  - an empty entry never moves and no value ever crosses into one: the empty ones stay at the end, A+1 to N, and
//    entries 1 to A come out in rising order, as any sort of the A values gives them;
//  - an empty pair is met as soon as one entry is empty, since every pair is looked at and an array with an empty entry
//    beside an accepted one has two entries at least. So n = N when A = N, and n = N - 1 when A < N, be one record
//    refused or a million: never A itself, except by chance (A = N - 1);
//  - n >= A always, so every accepted value is among the first n, and the sums over n entries are those over the A values;
//  - a position beyond A (a high quantile of a series of which many records were refused, nearly all of them in the
//    interannual block) reads an empty entry: a quantile is then "-", and a median takes it for 0.
//
// Nothing here depends on the empty entries but n: they are counted, never stored, so that a base of a million results
// costs no more than one of ten.
//
// Among equal values the exchanges may leave the halved ones (see below) in any order; no statistic depends on it.
#pragma once

#include <optional>
#include <QtGlobal>
#include <vector>

// A record that was accepted: its value as stored, and whether its remark code is 2 (below the detection threshold). Such a
// value is halved in the means and in nothing else.
struct MesureRetenue {
    double valeur = 0;
    bool moitie = false;
};

class SerieMesures
{
public:
    // `taille` is the number of entries of the array (N above), at least the number of accepted records.
    SerieMesures(std::vector<MesureRetenue> retenues, qint64 taille);

    // n: what the report shows as the count, and what every statistic below is based on.
    qint64 effectif() const { return m_effectif; }
    // A: the accepted records.
    qint64 retenues() const { return static_cast<qint64>(m_triees.size()); }

    // All unrounded. None stands for "-": no accepted record, or a quantile that falls on an empty entry.

    // Sum of the values, halved for code 2, over n.
    std::optional<double> moyenne() const;
    std::optional<double> quantile90() const;
    std::optional<double> quantile10() const;
    std::optional<double> mediane() const;
    // Population form: square root of the sum of the squared differences of the values as stored from the mean (the one
    // with halved values), over n.
    std::optional<double> ecartType() const;

private:
    // Value at a position from 1, or none where the entry is empty.
    std::optional<double> a(qint64 position) const;

    std::vector<MesureRetenue> m_triees;
    qint64 m_effectif;
};

// Position of the quantiles among n sorted values, from 1: n x 0.9 + 0.5 and n x 0.1, rounded to a whole with ties to
// even; n itself for up to ten values, and 1 for fewer than ten.
qint64 positionQuantile90(qint64 n);
qint64 positionQuantile10(qint64 n);
