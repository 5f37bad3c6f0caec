#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>
#include <QVector>

namespace VirtualDj {

/// What the file \a path holds; ends the test program when it cannot be read.
QByteArray bytesof(const QString& path);

/// A pads page file. XML is read strictly: one that is not well-formed is a dead page.
struct PadsPageFile
{
    struct Pad
    {
        QString name;   ///< shown text; scripts stand between back-quotes
        QString color;  ///< a query
        QString action; ///< a pad's text is its action (VirtualDJ's documentation)
    };
    struct Parameter
    {
        QString name;
        QString action;
    };

    QString error; ///< why the page is dead; empty when it is not
    QString name;
    QMap<int, Pad> pads; ///< by number, from 1
    QMap<int, Parameter> parameters;
    QStringList strangers; ///< elements that are neither
};

PadsPageFile readpadspage(const QByteArray& bytes);

/// A mapping file: what each control of the device does and each LED shows.
struct MappingFile
{
    QString error; ///< why the mapping is dead; empty when it is not
    QString device;
    /// Script by control. Of several entries for one control the last counts (our assumption).
    QMap<QString, QString> actions;
    QStringList contradictions; ///< controls with entries that differ
    QStringList strangers;      ///< elements that are no such entry
};

MappingFile readmapping(const QByteArray& bytes);

/// A control of a device.
struct Control
{
    enum class Type { Pad, Button, Slider, Ignore, Empty };

    Type type = Type::Pad;
    QString name;
    QString led;           ///< empty for controls without one
    bool plainLed = false; ///< on or off, no colours
    int row = -1;
    int column = -1;
};

/// A device, by the layout file that ships with the program: which controls there are and where they lie.
struct Device
{
    QString id;   ///< as mappings name it
    QString name; ///< as users know it
    bool fullRgb = false;
    QStringList colors; ///< of a device that is not full RGB
    int offColor = 0;   ///< default, index in `colors`
    int onColor = 0;
    QList<Control>
        controls; ///< pads first, then buttons, then the others; each kind in the order of the file
};

/// Reads the layout file \a path; ends the test program when it cannot.
Device readdevice(const QString& path);

} // namespace VirtualDj
