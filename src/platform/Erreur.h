// The one exception of the program: a run-time failure that ends as a box in front of the user.
#pragma once

#include <exception>
#include <QString>

// A failure with the number and the words of the engine that reported it (database, spreadsheet, file system), or
// with French words of our own and a number of ours. The boxes show "number - description" or the description alone.
class Erreur : public std::exception
{
public:
    Erreur(int numero, QString description);

    int numero() const { return m_numero; }
    const QString &description() const { return m_description; }
    // "numero - description", as most boxes end.
    QString numeroEtDescription() const;
    // The description in UTF-8.
    const char *what() const noexcept override { return m_utf8.constData(); }

private:
    int m_numero;
    QString m_description;
    QByteArray m_utf8;
};
