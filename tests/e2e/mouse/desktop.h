#pragma once

#include "form.h"
#include "home.h"
#include "keyboard.h"
#include "pointer.h"
#include "program.h"
#include "virtualdisplay.h"
#include "windows.h"

#include <QImage>
#include <QPoint>
#include <QRect>
#include <QString>
#include <QVector>

#include <functional>

/// A display, a home folder and Lumipad running on them: what can be seen of its main window, and the waiting
/// for what is to be seen.
///
/// Nothing here waits a fixed time. Every step waits until its effect can be seen; when that does not come,
/// or the program or the display ends, the step throws `Trouble` with a sentence and leaves a picture.
class Desktop
{
public:
    /// Prepares all but the program. \a program is its file, \a pictures the folder that pictures go to (made
    /// if missing), \a show the folder of a light show, which the home gets a copy of.
    Desktop(const QString& program, const QString& pictures, const QString& show);

    // The program

    /// Starts the program, with the environment variables \a more, waits for its window and gives it the
    /// keyboard. The earlier one must have ended. At a scale of the screen other than 1 the places of widgets
    /// are not known, so only keys work.
    void open(const QProcessEnvironment& more = {});
    /// Clicks the close box of the main window.
    void requestclose();
    /// Waits until the program has ended, which must be with the exit code \a code.
    void awaitend(int code);

    const Home& home() const { return m_home; }
    Pointer& pointer() { return m_pointer; }
    Keyboard& keyboard() { return m_keyboard; }

    // Waiting

    using Condition = std::function<bool()>;
    /// Waits until \a condition holds; gives up with \a sentence.
    void await(const Condition& condition, const QString& sentence);
    /// Ends the story: shows what the program wrote, saves a picture and throws \a sentence.
    [[noreturn]] void giveup(const QString& sentence);
    /// Returns once the main window has handled every earlier event: it handles them in order, so it has when
    /// the Export button has lit up under the mouse and gone dark again. Not while a box or menu is open.
    void settle();

    // Windows

    /// The main window; one that does not exist when it is not there.
    ScreenWindow mainwindow() const;
    /// All other visible windows of the program, the lowest first: dialogs, boxes, menus, drag pictures.
    QVector<ScreenWindow> otherwindows() const;
    /// Waits for a window besides the main one and gives the lowest; \a what names it.
    ScreenWindow awaitwindow(const QString& what);
    /// Waits until the window \a window is gone; \a what names it.
    void awaitgone(const ScreenWindow& window, const QString& what);
    /// Waits until the main window is the only one; \a what names what is to go.
    void awaitalone(const QString& what);
    /// Waits for the title of the main window.
    void awaittitle(const QString& title);
    /// Gives the keyboard to a window.
    void focus(const ScreenWindow& window);
    void focusmain() { focus(mainwindow()); }

    // Places, on the screen

    /// The widget of this object name.
    QRect rect(const QString& widget) const;
    /// The same rectangle of the central widget moved to where it is on the screen.
    QRect onscreen(QRect incentralwidget) const { return incentralwidget.translated(m_corner); }
    /// The mouse to where nothing lights up under it, as `hover` moves it.
    void idle();
    /// Clicks the middle of a widget.
    void click(const QString& widget);
    /// The mouse on \a point, a pixel or some beside it: each call another, so that the program is told
    /// again.
    void hover(QPoint point);

    // Pixels

    QImage screen(QRect part) const;
    QRgb color(QPoint point) const;
    /// Whether a message box or context menu is drawn: until then what lies below can be seen in its place.
    bool isdrawn(const ScreenWindow& window) const;
    /// Whether any pixel of the widget has the colour.
    bool shows(const QString& widget, QRgb color) const;

    // Pictures, as NAME.png in the folder for them

    /// The screen as it is.
    void picture(const QString& name);
    /// A part of the screen as it is.
    void picture(const QString& name, QRect part);
    /// The main window with the menus over it, as it is.
    void picturewindow(const QString& name) { picture(name, mainwindow().geometry); }
    /// The main window alone, once it has handled everything.
    void picturesettled(const QString& name);
    /// The folder that the pictures are in.
    QString pictures() const { return m_pictures; }
    /// Has all further pictures saved in \a folder, which is made if missing; throws `Trouble` if it cannot
    /// be.
    void setpictures(const QString& folder);

protected:
    /// The form that the window is made from.
    const Form& form() const { return m_form; }

private:
    void findcentralwidget();
    bool alive();

    QString m_programfile;
    QString m_pictures;
    Home m_home;
    VirtualDisplay m_display;
    Pointer m_pointer;
    Keyboard m_keyboard;
    Form m_form;
    Program m_program;
    WindowId m_mainwindow = 0;
    QPoint m_corner; ///< of the central widget, on the screen
    int m_hovers = 0;
};
