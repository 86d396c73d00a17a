// The drivers as a test wants them: one call of a session goes wrong, and as far as that can be done,
// for real. The program's own SQLExecDirect, SQLDriverConnect and SQLCancel stand before those of the
// driver manager, so that no product code knows of it.
//
//     FaultyDriver driver(Dsn());
//     driver.LoseBefore(3);
//     ... runs statements on the session; the third finds its connection gone
#pragma once

#include <QString>
#include <QStringList>

#include <chrono>

// One at a time. Statements are those of sessions, whatever their thread; a connection beside them
// (RowsOf, DirectConnection) is left alone but by RefuseBesideAt.
class FaultyDriver
{
public:
    // `dsn` is the data source of the sessions: to end their connections on the server.
    explicit FaultyDriver(const QString &dsn);
    // From then on every call is passed on; what is held goes on.
    ~FaultyDriver();
    FaultyDriver(const FaultyDriver &) = delete;
    FaultyDriver &operator=(const FaultyDriver &) = delete;

    // The statements that reached the driver since the last call, as they were sent. The numbers of
    // what follows count on from here.
    [[nodiscard]] QStringList Take();

    // What is to become of the statement of this number, 1 being the next one. It happens once.
    void Refuse(int number); // the engine refuses it
    // It is not done, nor the `count` - 1 that follow it, although the driver says so.
    void Skip(int number, int count);
    void Conflict(int number); // servers: its transaction lost against another one
    void Lock(int number); // servers: somebody else held its rows for too long
    void LoseBefore(int number); // servers: the connection is gone before it is sent
    void LoseAfter(int number); // servers: it is done, and the connection gone before its answer
    void Hold(int number); // it is sent after Release()
    void HoldAnswer(int number); // it is done, and answers after Release()

    // The engine refuses the statement of this number that a connection beside the sessions sends, 1
    // being the next one; 0: none. How many those sent since the last call.
    static int RefuseBesideAt(int number);

    // From now on, until Release().
    void HoldConnects();
    void HoldCancels();

    // From now on no connection can be opened, or again.
    void RefuseConnects(bool refuse);

    // Servers: ends the connection of this thread's session there and then.
    void Lose() const;

    // True when a call is held, or is within the time.
    [[nodiscard]] static bool IsHolding(std::chrono::milliseconds patience);

    // Lets go on what is held; nothing is held any more.
    static void Release();

    [[nodiscard]] static int Connects(); // so far
    [[nodiscard]] static int Cancels(); // that have begun so far
};
