#include "os2l.h"

#include <QJsonDocument>
#include <QStringList>

#include <utility>

namespace Os2l {

namespace {

constexpr int patience = 20000; // milliseconds

} // namespace

QList<QJsonObject> Objects::feed(const QByteArray& bytes)
{
    QList<QJsonObject> whole;
    m_pending += bytes;
    for (; m_looked < m_pending.size(); ++m_looked) {
        const char byte = m_pending.at(m_looked);
        if (m_escaped) {
            m_escaped = false;
        } else if (m_inText) {
            m_escaped = byte == '\\';
            m_inText = byte != '"';
        } else if (byte == '"') {
            m_inText = true;
        } else if (byte == '{') {
            ++m_depth;
        } else if (byte == '}' && --m_depth == 0) {
            whole.append(QJsonDocument::fromJson(m_pending.left(m_looked + 1)).object());
            m_pending.remove(0, m_looked + 1);
            m_looked = -1;
        }
    }
    return whole;
}

QString describe(const QList<Event>& events)
{
    QStringList all;
    for (const Event& event : events)
        all.append(event.kind + QStringLiteral(" \"") + event.name + (event.on ? "\" on" : "\" off"));
    return all.isEmpty() ? QStringLiteral("nothing") : all.join(QStringLiteral(", "));
}

LightShow::LightShow()
{
    if (!m_server.listen(QHostAddress::LocalHost))
        qFatal("The lighting program of the tests cannot listen");
}

bool LightShow::connected()
{
    // A running event loop may have taken the connection already.
    if (!m_socket && (m_server.hasPendingConnections() || m_server.waitForNewConnection(patience)))
        m_socket = m_server.nextPendingConnection();
    return m_socket != nullptr;
}

bool LightShow::receive(qint64 bytes, QList<Event>* events)
{
    if (!connected())
        return false;
    qint64 missing = bytes;
    while (missing > 0) {
        if (m_socket->bytesAvailable() == 0 && !m_socket->waitForReadyRead(patience))
            return false;
        const QByteArray some = m_socket->read(missing);
        missing -= some.size();
        const QList<QJsonObject> objects = m_objects.feed(some);
        for (const QJsonObject& object : objects) {
            Event event;
            event.kind = object.value(QLatin1String("evt")).toString();
            const bool command = event.kind == QLatin1String("cmd");
            event.name = command ? QString::number(object.value(QLatin1String("id")).toInt(-1))
                                 : object.value(QLatin1String("name")).toString();
            event.on = command || object.value(QLatin1String("state")) == QLatin1String("on");
            events->append(event);
        }
    }
    return true;
}

qint64 LightShow::tell(const QString& button, bool on)
{
    if (!connected())
        return 0;
    const QByteArray bytes = QJsonDocument(QJsonObject{{QStringLiteral("evt"), QStringLiteral("feedback")},
                                                       {QStringLiteral("name"), button},
                                                       {QStringLiteral("page"), QString()},
                                                       {QStringLiteral("state"),
                                                        on ? QStringLiteral("on") : QStringLiteral("off")}})
                                 .toJson(QJsonDocument::Compact);
    m_socket->write(bytes);
    m_socket->waitForBytesWritten(patience);
    return bytes.size();
}

Sender::Sender(quint16 port)
{
    m_socket.connectToHost(QHostAddress::LocalHost, port);
    if (!m_socket.waitForConnected(patience))
        qFatal("The lighting program of the tests does not answer");
}

void Sender::button(const QString& name, bool on)
{
    send({{QStringLiteral("evt"), QStringLiteral("btn")},
          {QStringLiteral("name"), name},
          {QStringLiteral("page"), QString()},
          {QStringLiteral("state"), on ? QStringLiteral("on") : QStringLiteral("off")}});
}

void Sender::command(int id, double value)
{
    send({{QStringLiteral("evt"), QStringLiteral("cmd")},
          {QStringLiteral("id"), id},
          {QStringLiteral("param"), value}});
}

void Sender::send(const QJsonObject& object)
{
    const QByteArray bytes = QJsonDocument(object).toJson(QJsonDocument::Compact);
    m_socket.write(bytes);
    m_sent += bytes.size();
}

qint64 Sender::sent()
{
    while (m_socket.bytesToWrite() > 0 && m_socket.waitForBytesWritten(patience)) {
    }
    return std::exchange(m_sent, 0);
}

bool Sender::listen(qint64 bytes)
{
    qint64 missing = bytes;
    while (missing > 0) {
        if (m_socket.bytesAvailable() == 0 && !m_socket.waitForReadyRead(patience))
            return false;
        const QByteArray some = m_socket.read(missing);
        missing -= some.size();
        const QList<QJsonObject> objects = m_objects.feed(some);
        for (const QJsonObject& object : objects) {
            if (object.value(QLatin1String("evt")) != QLatin1String("feedback"))
                continue;
            const QString name = object.value(QLatin1String("name")).toString();
            if (object.value(QLatin1String("state")) == QLatin1String("on"))
                m_active.insert(name);
            else
                m_active.remove(name);
        }
    }
    return true;
}

} // namespace Os2l
