// The desktop or the user asks the program to end from outside (a session that closes, Ctrl+C in a terminal).
#pragma once

#include <functional>
#include <QObject>

// While it exists, those requests run `action` from the event loop instead of killing the program, so that the base
// is closed and the spreadsheet instance ended. One at a time.
class ArretDemande final : public QObject
{
    Q_OBJECT
public:
    explicit ArretDemande(std::function<void()> action);
    ~ArretDemande() override;

private:
    std::function<void()> m_action;
};
