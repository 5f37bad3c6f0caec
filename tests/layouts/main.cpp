// lumipad_check_layout FILE...: says in sentences what is wrong with layouts of controllers and their factory
// mappings. A mapping stands for the layout beside it, as either is of no use alone. Ends with 1 when
// anything is wrong.

#include "layoutcheck.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QTextStream>

#include <utility>

namespace {

/// The layout that the file \a path is or belongs to.
QString layoutof(const QString& path)
{
    const QFileInfo file(path);
    const QString end = QStringLiteral(" mapping");
    const QString name = file.baseName();
    return name.endsWith(end)
               ? file.path() + QLatin1Char('/') + name.chopped(end.size()) + QStringLiteral(".xml")
               : path;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication app(argc, argv);
    QTextStream out(stdout);
    QStringList layouts;
    const QStringList files = QCoreApplication::arguments().mid(1);
    for (const QString& file : files)
        layouts.append(layoutof(file));
    layouts.removeDuplicates();
    if (layouts.isEmpty()) {
        QTextStream(stderr) << "lumipad_check_layout: it is called with the files of layouts or mappings.\n";
        return 1;
    }
    int count = 0;
    for (const QString& layout : std::as_const(layouts)) {
        const QStringList faults = layoutfaults(layout);
        for (const QString& fault : faults)
            out << fault << '\n';
        if (faults.isEmpty())
            out << QFileInfo(layout).fileName() << " and its mapping are in order.\n";
        count += int(faults.size());
    }
    return count == 0 ? 0 : 1;
}
