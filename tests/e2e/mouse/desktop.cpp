#include "desktop.h"

#include "look.h"
#include "pixels.h"
#include "trouble.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QThread>

#include <csignal>
#include <cstdio>

namespace {

// Far more than any step needs: only a broken step should ever use it.
constexpr qint64 patience = 90000; // ms
constexpr int pollInterval = 20;   // ms
constexpr int shownLines = 60;     // of what the program wrote

volatile std::sig_atomic_t stopped = 0;

/// Called when this process is asked to end. The step under way then gives up, so that all is tidied.
void stop(int /*signal*/) { stopped = 1; }

} // namespace

Desktop::Desktop(const QString& program, const QString& pictures, const QString& show)
    : m_programfile(program), m_home(show), m_pointer(m_display.connection()),
      m_keyboard(m_display.connection()), m_form(QStringLiteral(LUMIPAD_FORM))
{
    std::signal(SIGINT, stop);
    std::signal(SIGTERM, stop);
    setpictures(pictures);
}

void Desktop::open(const QProcessEnvironment& more)
{
    m_program.start(m_programfile, m_home, m_display.name(), more);
    m_mainwindow = 0;
    await(
        [this] {
            const QVector<ScreenWindow> windows = otherwindows();
            for (const ScreenWindow& window : windows)
                if (window.title.contains(QLatin1String("Lumipad")))
                    m_mainwindow = window.id;
            return m_mainwindow != 0;
        },
        QStringLiteral("The window did not appear."));
    findcentralwidget();
    focusmain();
}

/// The menu bar is as high as its font makes it; the central widget begins where its colour does.
void Desktop::findcentralwidget()
{
    const QPoint window = mainwindow().geometry.topLeft();
    const QRect strip(window + QPoint(2, 0), QSize(6, 100));
    await(
        [&] {
            const QVector<QRect> ground = rectangles(screen(strip), Look::background, {6, 10});
            if (!ground.isEmpty())
                m_corner = window + QPoint(0, ground.constFirst().top());
            return !ground.isEmpty();
        },
        QStringLiteral("The window appeared but was not drawn."));
}

void Desktop::requestclose() { ::requestclose(m_display.connection(), m_mainwindow); }

void Desktop::awaitend(int code)
{
    QElapsedTimer timer;
    timer.start();
    while (!m_program.hasended()) {
        if (timer.hasExpired(patience) || stopped != 0 || !m_display.runs())
            giveup(QStringLiteral("The program did not end."));
        QThread::msleep(pollInterval);
    }
    if (m_program.exitcode() != code)
        giveup(
            QStringLiteral("The program ended with %1 instead of %2.").arg(m_program.exitcode()).arg(code));
}

bool Desktop::alive() { return stopped == 0 && m_display.runs() && m_program.runs(); }

void Desktop::await(const Condition& condition, const QString& sentence)
{
    QElapsedTimer timer;
    timer.start();
    while (!condition()) {
        if (timer.hasExpired(patience) || !alive())
            giveup(sentence);
        QThread::msleep(pollInterval);
    }
}

void Desktop::giveup(const QString& sentence)
{
    const QString file = m_pictures + QStringLiteral("/failure.png");
    const bool saved = m_display.runs() && screen(m_display.area()).save(file);
    QFile log(m_home.logfile());
    if (log.open(QIODevice::ReadOnly) && log.size() > 0) {
        const QList<QByteArray> lines = log.readAll().split('\n').mid(-shownLines);
        std::fprintf(stderr, "The program wrote:\n%s\n", lines.join('\n').constData());
    }
    QString story = sentence;
    if (stopped != 0)
        story += QStringLiteral(" This process was asked to end.");
    if (m_program.hasended())
        story += QStringLiteral(" The program has ended.");
    if (saved)
        story += QStringLiteral(" (picture: %1)").arg(file);
    throw Trouble(story);
}

void Desktop::settle()
{
    const QRect button = rect(QStringLiteral("pushButton_2"));
    const QPoint edge(button.left() + 6, button.center().y());
    await(
        [&] {
            // Moves are lost when a dialog that has just disappeared still keeps the mouse from the window.
            hover(edge);
            return color(edge) == Look::buttonUnderMouse;
        },
        QStringLiteral("The Export button did not light up under the mouse."));
    await(
        [&] {
            idle();
            return color(edge) == Look::button;
        },
        QStringLiteral("The Export button did not go dark when the mouse left it."));
}

ScreenWindow Desktop::mainwindow() const
{
    const QVector<ScreenWindow> all = windowsof(m_display.connection(), m_program.process());
    for (const ScreenWindow& window : all)
        if (window.id == m_mainwindow)
            return window;
    return {};
}

QVector<ScreenWindow> Desktop::otherwindows() const
{
    QVector<ScreenWindow> others;
    const QVector<ScreenWindow> all = windowsof(m_display.connection(), m_program.process());
    for (const ScreenWindow& window : all)
        if (window.id != m_mainwindow)
            others.append(window);
    return others;
}

ScreenWindow Desktop::awaitwindow(const QString& what)
{
    ScreenWindow found;
    await(
        [&] {
            found = otherwindows().value(0);
            return found.exists();
        },
        QStringLiteral("%1 did not appear.").arg(what));
    return found;
}

void Desktop::awaitgone(const ScreenWindow& window, const QString& what)
{
    await(
        [&] {
            const QVector<ScreenWindow> others = otherwindows();
            for (const ScreenWindow& other : others)
                if (other.id == window.id)
                    return false;
            return true;
        },
        QStringLiteral("%1 did not close.").arg(what));
}

void Desktop::awaitalone(const QString& what)
{
    await([this] { return otherwindows().isEmpty(); }, QStringLiteral("%1 did not close.").arg(what));
}

void Desktop::awaittitle(const QString& title)
{
    await([&] { return mainwindow().title == title; },
          QStringLiteral("The title of the window did not become \"%1\".").arg(title));
}

void Desktop::focus(const ScreenWindow& window)
{
    await(
        [&] {
            givekeyboard(m_display.connection(), window.id);
            return haskeyboard(m_display.connection(), window.id);
        },
        QStringLiteral("The window \"%1\" did not take the keyboard.").arg(window.title));
}

QRect Desktop::rect(const QString& widget) const { return onscreen(m_form.rect(widget)); }

void Desktop::idle()
{
    // Below the field for the name the window is empty.
    hover(rect(QStringLiteral("padsname")).bottomRight() + QPoint(40, 40));
}

void Desktop::click(const QString& widget) { m_pointer.click(rect(widget).center()); }

void Desktop::hover(QPoint point)
{
    m_hovers = (m_hovers + 1) % 5;
    m_pointer.move(point + QPoint(m_hovers, 0));
}

QImage Desktop::screen(QRect part) const { return screenpart(m_display.connection(), part); }

QRgb Desktop::color(QPoint point) const
{
    const QImage pixel = screen(QRect(point, QSize(1, 1)));
    return pixel.isNull() ? 0 : pixel.pixel(0, 0);
}

bool Desktop::isdrawn(const ScreenWindow& window) const
{
    const QRect& area = window.geometry;
    return color(area.topLeft()) == Look::frame && color(area.topRight()) == Look::frame &&
           color(area.bottomLeft()) == Look::frame && color(area.bottomRight()) == Look::frame;
}

bool Desktop::shows(const QString& widget, QRgb color) const
{
    return !rectangles(screen(rect(widget)), color, {1, 1}).isEmpty();
}

void Desktop::picture(const QString& name) { picture(name, m_display.area()); }

void Desktop::picture(const QString& name, QRect part)
{
    if (!screen(part).save(QStringLiteral("%1/%2.png").arg(m_pictures, name)))
        giveup(QStringLiteral("The picture %1 could not be saved.").arg(name));
}

void Desktop::setpictures(const QString& folder)
{
    if (!QDir().mkpath(folder))
        throw Trouble(QStringLiteral("The folder %1 cannot be made.").arg(folder));
    m_pictures = folder;
}

void Desktop::picturesettled(const QString& name)
{
    settle();
    picturewindow(name);
}
