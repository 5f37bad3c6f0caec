#include "layoutcheck.h"

#include "bounds.h"
#include "cells.h"
#include "devices.h"
#include "domrecords.h"
#include "readfile.h"
#include "xmltext.h"

#include <QColor>
#include <QDomDocument>
#include <QFileInfo>
#include <QHash>
#include <QMap>
#include <QPair>
#include <QRegularExpression>

#include <optional>

namespace {

QString quoted(const QString& text) { return QLatin1Char('"') + text + QLatin1Char('"'); }

QString attribute(const QDomElement& element, const char* name)
{
    return element.attribute(QLatin1String(name));
}

/// A whole number from 0 to \a most, written in digits alone.
std::optional<int> numberupto(const QString& text, int most)
{
    bool isnumber = false;
    const int number = text.toInt(&isnumber);
    const bool plain = isnumber && QString::number(number) == text && number >= 0 && number <= most;
    return plain ? std::optional<int>(number) : std::nullopt;
}

/// One file with its document. Its faults are collected in a list that both files of a controller share.
class XmlFile
{
public:
    XmlFile(const QString& path, QStringList* faults) : m_path(path), m_faults(faults) {}

    void fault(const QString& sentence, const QDomNode& where = QDomNode())
    {
        fault(sentence, where.isNull() ? 0 : where.lineNumber());
    }

    void fault(const QString& sentence, int line)
    {
        const QString place = line > 0 ? QStringLiteral(", line %1").arg(line) : QString();
        m_faults->append(QFileInfo(m_path).fileName() + place + QStringLiteral(": ") + sentence);
    }

    /// The element \a root that the whole file must be; null, and a fault, when it is not.
    QDomElement read(const QString& root)
    {
        const std::optional<QByteArray> bytes = readregularfile(m_path, maxXmlSize);
        if (!bytes) {
            fault(QStringLiteral("there is no such file, or it cannot be read, or it is too large."));
            return {};
        }
        checkform(*bytes);
        const XmlText xml = safexml(*bytes);
        QString trouble;
        int line = 0;
        if (xml.refusal != XmlRefusal::None) {
            fault(
                QStringLiteral("the program refuses to read this document; plain elements and attributes in "
                               "UTF-8 are all it takes."));
            return {};
        }
        if (!m_document.setContent(xml.text, &trouble, &line)) {
            fault(QStringLiteral("this is no well-formed XML (%1).").arg(trouble), line);
            return {};
        }
        const QDomElement element = m_document.documentElement();
        if (element.tagName() == root)
            return element;
        fault(QStringLiteral("the outermost element is \"%1\" and must be \"%2\".")
                  .arg(element.tagName(), root),
              element);
        return {};
    }

    /// Names every attribute of \a element that is not in \a known.
    void checkattributes(const QDomElement& element, const QStringList& known)
    {
        const QStringList names = recordof(element).keys();
        for (const QString& name : names) {
            if (!known.contains(name))
                fault(QStringLiteral("\"%1\" has an attribute \"%2\", which nothing reads; it takes %3.")
                          .arg(element.tagName(), name, known.join(QStringLiteral(", "))),
                      element);
        }
    }

private:
    void checkform(const QByteArray& bytes)
    {
        if (!bytes.startsWith("<?xml version=\"1.0\" encoding=\"UTF-8\"?>"))
            fault(QStringLiteral("it must begin with <?xml version=\"1.0\" encoding=\"UTF-8\"?>."), 1);
        if (QString::fromUtf8(bytes).toUtf8() != bytes)
            fault(QStringLiteral("it is not in UTF-8."));
        if (bytes.count('\n') != bytes.count("\r\n") || !bytes.endsWith('\n'))
            fault(QStringLiteral(
                "every line, the last too, must end with CR LF, as VirtualDJ's own files do."));
    }

    QString m_path;
    QStringList* m_faults;
    QDomDocument m_document;
};

/// Where three layouts have always put their pad "2.1": on the cell of "1.1", so one cell has no control.
/// They stay as they are, since mappings and projects that people have made agree with them.
bool isknown(const QString& device, int row, int col)
{
    const bool twocolor = device == QLatin1String("LAUNCHPAD") || device == QLatin1String("LAUNCHPADS") ||
                          device == QLatin1String("LAUNCHPADMINI");
    return twocolor && (row == 2 || row == 3) && col == 2;
}

QString cellname(int row, int col)
{
    const QString label = controller::padtext(row, col);
    return QStringLiteral("row %1, column %2%3")
        .arg(row)
        .arg(col)
        .arg(label.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(label));
}

/// The side of the grid on which a cell lies; empty for the pads.
QString sideof(int row, int col)
{
    if (row == Grid::FirstSide)
        return QStringLiteral("top");
    if (row == Grid::LastSide)
        return QStringLiteral("bottom");
    if (col == Grid::FirstSide)
        return QStringLiteral("left");
    return col == Grid::LastSide ? QStringLiteral("right") : QString();
}

/// A layout and its mapping, gone through once.
class LayoutCheck
{
public:
    explicit LayoutCheck(const QString& path)
        : m_path(path), m_mappingpath(QFileInfo(path).path() + QLatin1Char('/') + QFileInfo(path).baseName() +
                                      QStringLiteral(" mapping.xml")),
          m_layout(m_path, &m_faults), m_mapping(m_mappingpath, &m_faults)
    {
    }

    QStringList run()
    {
        checkname();
        const QDomElement root = m_layout.read(QStringLiteral("layout"));
        if (root.isNull())
            return m_faults;
        m_device = recordof(root);
        checkdevice(root);
        checkcolors(root);
        checkcontrols(root);
        checkcells(root);
        const QDomElement mapper = m_mapping.read(QStringLiteral("mapper"));
        if (!mapper.isNull()) {
            checkmapping(mapper);
            checkentries(root);
        }
        return m_faults;
    }

private:
    void checkname()
    {
        const QFileInfo file(m_path);
        if (file.completeBaseName() != file.baseName())
            m_layout.fault(
                QStringLiteral("the device is called what stands before the first dot of the name, here "
                               "%1; take a name without one.")
                    .arg(quoted(file.baseName())));
        if (file.suffix() != QLatin1String("xml"))
            m_layout.fault(QStringLiteral("the name must end with \".xml\"."));
    }

    void checkdevice(const QDomElement& root)
    {
        m_layout.checkattributes(root, {"name", "description", "fullrgb", "colors", "coloroff", "coloron",
                                        "top", "left", "bottom", "right", "faders"});
        const QString id = attribute(root, "name");
        static const QRegularExpression word(
            QRegularExpression::anchoredPattern(QStringLiteral("[A-Z0-9_]+")));
        if (!word.match(id).hasMatch())
            m_layout.fault(
                QStringLiteral("\"name\" must be the id by which VirtualDJ's mappings know the device, in "
                               "capital letters and digits; it is %1.")
                    .arg(quoted(id)),
                root);
        const auto others = controller::readdefaultmappers(QFileInfo(m_path).path()).devices;
        for (const Record& other : others) {
            if (other.value(QStringLiteral("device")) == id &&
                other.value(QStringLiteral("name")) != QFileInfo(m_path).baseName())
                m_layout.fault(QStringLiteral("the id %1 is already the one of %2.")
                                   .arg(quoted(id), quoted(other.value(QStringLiteral("name")))),
                               root);
        }
        if (attribute(root, "description").isEmpty())
            m_layout.fault(QStringLiteral("\"description\" is missing; it names the device in a few words."),
                           root);
        for (const char* side : {"top", "left", "bottom", "right"}) {
            if (!numberupto(attribute(root, side), Grid::PadsPerLine))
                m_layout.fault(
                    QStringLiteral("\"%1\" must be the number of side buttons there, 0 to %2; it is %3.")
                        .arg(QLatin1String(side))
                        .arg(Grid::PadsPerLine)
                        .arg(quoted(attribute(root, side))),
                    root);
        }
        const int sliders = root.elementsByTagName(QStringLiteral("slider")).count();
        if (attribute(root, "faders") != QString::number(sliders))
            m_layout.fault(
                QStringLiteral("\"faders\" must be the number of \"slider\" elements, %1; it is %2.")
                    .arg(sliders)
                    .arg(quoted(attribute(root, "faders"))),
                root);
    }

    void checkcolors(const QDomElement& root)
    {
        const QString fullrgb = attribute(root, "fullrgb");
        if (fullrgb == QLatin1String("true")) {
            for (const char* name : {"colors", "coloroff", "coloron"}) {
                if (root.hasAttribute(QLatin1String(name)))
                    m_layout.fault(QStringLiteral("\"%1\" is of no use to a device that takes any colour "
                                                  "(fullrgb=\"true\").")
                                       .arg(QLatin1String(name)),
                                   root);
            }
            return;
        }
        if (fullrgb != QLatin1String("false"))
            m_layout.fault(
                QStringLiteral("\"fullrgb\" must be \"true\" (the lights take any colour) or \"false\" "
                               "(they have those of \"colors\"); it is %1.")
                    .arg(quoted(fullrgb)),
                root);
        const QStringList palette = controller::palette(m_device);
        for (const QString& color : palette)
            checkcolor(root, color, palette);
        const auto most = int(palette.size()) - 1;
        for (const char* name : {"coloroff", "coloron"}) {
            if (!numberupto(attribute(root, name), most))
                m_layout.fault(
                    QStringLiteral("\"%1\" must be the place of a colour in \"colors\", counted from 0 to "
                                   "%2; it is %3.")
                        .arg(QLatin1String(name))
                        .arg(most)
                        .arg(quoted(attribute(root, name))),
                    root);
        }
        if (attribute(root, "coloroff") == attribute(root, "coloron"))
            m_layout.fault(
                QStringLiteral("\"coloroff\" and \"coloron\" are the same, so nobody could see whether a "
                               "Live Button is on."),
                root);
    }

    void checkcolor(const QDomElement& root, const QString& color, const QStringList& palette)
    {
        static const QRegularExpression html(
            QRegularExpression::anchoredPattern(QStringLiteral("#[0-9A-Fa-f]{6}")));
        if (!html.match(color).hasMatch() && !QColor::colorNames().contains(color))
            m_layout.fault(
                QStringLiteral("%1 in \"colors\" is no colour; write \"#\" and six hexadecimal digits, or "
                               "the name of a colour in small letters, and no blanks.")
                    .arg(quoted(color)),
                root);
        if (palette.count(color) > 1)
            m_layout.fault(QStringLiteral("%1 stands in \"colors\" twice.").arg(quoted(color)), root);
    }

    void checkcontrols(const QDomElement& root)
    {
        const QList<QDomElement> controls = childrenof(root);
        for (const QDomElement& control : controls) {
            static const QMap<QString, QStringList> kinds{
                {"pad", {"name", "row", "col", "colorled", "group"}},
                {"button", {"name", "row", "col", "colorled", "led", "group"}},
                {"slider", {"name", "row", "col"}},
                {"ignore", {"name"}},
                {"empty", {"name"}}};
            const QString tag = control.tagName();
            if (!kinds.contains(tag)) {
                m_layout.fault(
                    QStringLiteral("\"%1\" is no kind of control; there are pad, button, slider, ignore "
                                   "and empty.")
                        .arg(tag),
                    control);
                continue;
            }
            m_layout.checkattributes(control, kinds.value(tag));
            checkcontrolname(control);
            if (tag == QLatin1String("pad") || tag == QLatin1String("button")) {
                checklight(control);
                checkplace(control);
            } else if (tag == QLatin1String("slider")) {
                if (!numberupto(attribute(control, "row"), Grid::Lines - 1) ||
                    !numberupto(attribute(control, "col"), Grid::Lines - 1))
                    m_layout.fault(QStringLiteral("the slider %1 needs a \"row\" and a \"col\" from 0 to 11.")
                                       .arg(quoted(attribute(control, "name"))),
                                   control);
            }
        }
    }

    void checkcontrolname(const QDomElement& control)
    {
        const QString name = attribute(control, "name");
        if (name.isEmpty())
            m_layout.fault(QStringLiteral("this %1 has no \"name\".").arg(control.tagName()), control);
        // A device may send what nobody uses under one name several times.
        const bool ignored = control.tagName() == QLatin1String("ignore");
        const auto before = m_names.constFind(name);
        if (before != m_names.constEnd() && !(ignored && *before == control.tagName()))
            m_layout.fault(QStringLiteral("there is a control %1 already.").arg(quoted(name)), control);
        m_names.insert(name, control.tagName());
    }

    void checklight(const QDomElement& control)
    {
        const bool color = !attribute(control, "colorled").isEmpty();
        const bool plain = !attribute(control, "led").isEmpty();
        if (color == plain)
            m_layout.fault(
                QStringLiteral("the %1 %2 needs %3: what stands before its name in the name of its light.")
                    .arg(control.tagName(), quoted(attribute(control, "name")),
                         control.tagName() == QLatin1String("pad")
                             ? QStringLiteral("\"colorled\"")
                             : QStringLiteral("either \"colorled\" (a light with colours) or \"led\" (on "
                                              "and off)")),
                control);
    }

    void checkplace(const QDomElement& control)
    {
        const QString who = control.tagName() + QLatin1Char(' ') + quoted(attribute(control, "name"));
        const auto row = numberupto(attribute(control, "row"), Grid::Lines - 1);
        const auto col = numberupto(attribute(control, "col"), Grid::Lines - 1);
        if (!row || !col) {
            m_layout.fault(
                QStringLiteral("the %1 lies outside of the grid: \"row\" and \"col\" go from 0 to 11, and "
                               "here they are %2 and %3.")
                    .arg(who, quoted(attribute(control, "row")), quoted(attribute(control, "col"))),
                control);
            return;
        }
        if (controller::padavail(*row, *col, m_device) != QLatin1String("1"))
            m_layout.fault(
                QStringLiteral("the %1 lies in %2, which is no control of this device: pads have rows and "
                               "columns 2 to 9, and each side has as many buttons as \"top\", \"left\", "
                               "\"bottom\" and \"right\" say.")
                    .arg(who, cellname(*row, *col)),
                control);
        const QString group = attribute(control, "group");
        if (!group.isEmpty() && group != sideof(*row, *col))
            m_layout.fault(QStringLiteral("the %1 says group=%2 and lies in %3.")
                               .arg(who, quoted(group), cellname(*row, *col)),
                           control);
        QString& holder = m_cells[{*row, *col}];
        if (!holder.isEmpty() && !isknown(attribute(control.parentNode().toElement(), "name"), *row, *col))
            m_layout.fault(QStringLiteral("the %1 lies in %2, where %3 is already.")
                               .arg(who, cellname(*row, *col), quoted(holder)),
                           control);
        holder = attribute(control, "name");
    }

    void checkcells(const QDomElement& root)
    {
        for (int row = 0; row < Grid::Lines; ++row) {
            for (int col = 0; col < Grid::Lines; ++col) {
                const bool wanted = controller::padavail(row, col, m_device) == QLatin1String("1") &&
                                    !isknown(attribute(root, "name"), row, col);
                if (wanted && !m_cells.contains({row, col}))
                    m_layout.fault(
                        QStringLiteral("a control is missing: none lies in %1.").arg(cellname(row, col)),
                        root);
            }
        }
    }

    void checkmapping(const QDomElement& mapper)
    {
        const QString id = m_device.value(QStringLiteral("name"));
        if (attribute(mapper, "device") != id)
            m_mapping.fault(QStringLiteral("the mapping is for the device %1, the layout for %2.")
                                .arg(quoted(attribute(mapper, "device")), quoted(id)),
                            mapper);
        const QList<QDomElement> maps = childrenof(mapper);
        for (const QDomElement& map : maps) {
            if (map.tagName() == QLatin1String("info"))
                continue;
            if (map.tagName() != QLatin1String("map")) {
                m_mapping.fault(QStringLiteral("\"%1\" is neither \"info\" nor \"map\".").arg(map.tagName()),
                                map);
                continue;
            }
            m_mapping.checkattributes(map, {"value", "action"});
            const QString value = attribute(map, "value");
            if (m_actions.contains(value))
                m_mapping.fault(QStringLiteral("there is an entry %1 already, and only the last one counts.")
                                    .arg(quoted(value)),
                                map);
            m_actions.insert(value, map);
            checkaction(map);
        }
    }

    void checkaction(const QDomElement& map)
    {
        const QString value = quoted(attribute(map, "value"));
        const QString action = attribute(map, "action");
        if (action.contains(QLatin1String("$os2l")))
            m_mapping.fault(
                QStringLiteral("the action of %1 uses the variable $os2l, which is the program's own.")
                    .arg(value),
                map);
        QString rest = action;
        rest.replace(QLatin1String(" & "), QLatin1String(" "));
        if (rest.contains(QLatin1Char('&')) || rest.contains(QLatin1Char('<')) ||
            rest.contains(QLatin1Char('>')))
            m_mapping.fault(
                QStringLiteral("the action of %1 has a \"<\", a \">\" or a \"&\" without a blank on both "
                               "sides; the exported mapping would be no XML.")
                    .arg(value),
                map);
    }

    /// Every control needs an action, every light one that an export can be undone from.
    void checkentries(const QDomElement& root)
    {
        const QList<QDomElement> controls = childrenof(root);
        for (const QDomElement& control : controls) {
            const QString name = attribute(control, "name");
            const QString color = attribute(control, "colorled");
            const QString plain = attribute(control, "led");
            if (attribute(m_actions.value(name), "action").isEmpty())
                m_mapping.fault(
                    QStringLiteral("the control %1 of the layout has no entry, or one without an action.")
                        .arg(quoted(name)));
            if (!color.isEmpty() && !m_actions.contains(color + name))
                m_mapping.fault(
                    QStringLiteral("the light %1 of the layout has no entry.").arg(quoted(color + name)));
            if (!color.isEmpty() || !plain.isEmpty())
                checklightaction(m_actions.value((color.isEmpty() ? plain : color) + name));
        }
    }

    void checklightaction(const QDomElement& map)
    {
        const QString action = attribute(map, "action");
        const auto condition = action.indexOf(QLatin1String(" ? "));
        if (!map.isNull() && (condition < 0 || action.indexOf(QLatin1String(" : ")) < condition))
            m_mapping.fault(
                QStringLiteral("the light %1 needs a condition and both cases (\"shift ? on : off\"); "
                               "other actions are lost when somebody starts from an exported mapping.")
                    .arg(quoted(attribute(map, "value"))),
                map);
    }

    QString m_path;
    QString m_mappingpath;
    QStringList m_faults;
    XmlFile m_layout;
    XmlFile m_mapping;
    Record m_device;                        ///< the attributes of the layout
    QHash<QString, QString> m_names;        ///< the kind of every control, by its name
    QMap<QPair<int, int>, QString> m_cells; ///< the control in every cell that has one
    QHash<QString, QDomElement> m_actions;  ///< the entries of the mapping, by what they are for
};

} // namespace

QStringList layoutfaults(const QString& path) { return LayoutCheck(path).run(); }
