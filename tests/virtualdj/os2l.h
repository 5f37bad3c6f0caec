#pragma once

#include <QByteArray>
#include <QHostAddress>
#include <QJsonObject>
#include <QList>
#include <QSet>
#include <QString>
#include <QTcpServer>
#include <QTcpSocket>

#include <memory>

/// OS2L, the way from VirtualDJ to a lighting program: JSON objects over TCP (os2l.org). Only what the tests
/// need: the loopback interface, one connection, no search by DNS-SD.
namespace Os2l {

/// Cuts a stream of bytes into the JSON objects that it holds. Nothing is said to stand between them, so an
/// object ends with its own closing brace (our assumption).
class Objects
{
public:
    /// Takes more bytes of the stream and gives the objects that are whole now. What is no object is given as
    /// an empty one.
    QList<QJsonObject> feed(const QByteArray& bytes);

private:
    QByteArray m_pending;
    int m_looked = 0;
    int m_depth = 0;
    bool m_inText = false;
    bool m_escaped = false;
};

/// Something that VirtualDJ told the lighting program.
struct Event
{
    QString kind; ///< "btn" or "cmd"
    QString name; ///< of the button; the number of the command
    bool on = false;

    bool operator==(const Event& other) const
    {
        return kind == other.kind && name == other.name && on == other.on;
    }
    bool operator!=(const Event& other) const { return !(*this == other); }
};

/// For messages.
QString describe(const QList<Event>& events);

/// The lighting program: listens on a port of its own, and can tell which of its buttons are on.
class LightShow
{
public:
    /// Ends the test program when it cannot listen.
    LightShow();

    quint16 port() const { return m_server.serverPort(); }
    /// Waits for \a bytes more bytes to arrive and gives the events in them. False when they do not come.
    bool receive(qint64 bytes, QList<Event>* events);
    /// Tells VirtualDJ that \a button is on or off (our assumption: an object like VirtualDJ's own, named
    /// "feedback"); the number of bytes sent.
    qint64 tell(const QString& button, bool on);

private:
    bool connected();

    QTcpServer m_server;
    QTcpSocket* m_socket = nullptr;
    Objects m_objects;
};

/// VirtualDJ's end.
class Sender
{
public:
    /// Connects to the lighting program as VirtualDJ's option for a direct address does; ends the test
    /// program when that fails.
    explicit Sender(quint16 port);

    /// `{"evt":"btn","name":...,"page":"","state":"on"}`; an empty page means the master page (os2l.org).
    void button(const QString& name, bool on);
    /// `{"evt":"cmd","id":...,"param":...}` (our assumption).
    void command(int id, double value);
    /// The number of bytes sent since the last call, all of them on their way.
    qint64 sent();
    /// Waits for \a bytes of the lighting program's answers. False when they do not come.
    bool listen(qint64 bytes);
    /// The buttons that the lighting program has told to be on.
    const QSet<QString>& active() const { return m_active; }

private:
    void send(const QJsonObject& object);

    QTcpSocket m_socket;
    Objects m_objects;
    QSet<QString> m_active;
    qint64 m_sent = 0;
};

} // namespace Os2l
