#include "cells.h"
#include "controller.h"
#include "itemroles.h"
#include "mydelegate.h"

#include <QApplication>
#include <QFontMetrics>
#include <QHeaderView>
#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <QTableView>
#include <QtTest>

#include <memory>

Q_DECLARE_METATYPE(QStyle::State)

namespace {

constexpr QRgb paper = 0xffff00ff; ///< what the cell is painted on; no part of a cell has it
constexpr QRgb black = 0xff000000;
constexpr QRgb white = 0xffffffff;
constexpr QRgb swatch = 0xff12ab34;
constexpr QRgb hovered = 0xff202020;
constexpr QRgb marked = 0xff404040;
constexpr QRgb inactive = 0xff303030;
constexpr QRgb inactiveText = 0xff909090;

constexpr QRect usualCell(20, 10, 95, 30);

std::unique_ptr<Controller> grid()
{
    auto model = std::make_unique<Controller>();
    model->insertRows(0, 12);
    return model;
}

/// Names the cell and gives it the colour of the swatch.
void name(Controller& model, int row, int col, const QString& text)
{
    model.setData(model.index(row, col), text, Qt::EditRole);
    model.setData(model.index(row, col), "not shown", ItemRole::DspName);
    model.setData(model.index(row, col), QColor(swatch).name(), Qt::DecorationRole);
}

/// A font whose letters have hard edges: every pixel is either the text's colour or what was there before.
QFont hardEdged(int pixelSize)
{
    QFont font;
    font.setPixelSize(pixelSize);
    font.setStyleStrategy(QFont::NoAntialias);
    return font;
}

/// The cell as the delegate paints it, on a larger piece of paper.
QImage painted(const QModelIndex& index, QStyle::State state = QStyle::State_Enabled,
               const QRect& cell = usualCell, const QFont& font = hardEdged(12))
{
    QImage image(200, 100, QImage::Format_RGB32);
    image.fill(paper);
    QPainter painter(&image);
    QStyleOptionViewItem option;
    option.rect = cell;
    option.state = state;
    option.font = font;
    Mydelegate().paint(&painter, option, index);
    return image;
}

/// The smallest rectangle around all pixels of the colour.
QRect extent(const QImage& image, QRgb color)
{
    QRect found;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) == color)
                found |= QRect(x, y, 1, 1);
        }
    }
    return found;
}

int count(const QImage& image, QRgb color)
{
    int found = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            found += image.pixel(x, y) == color ? 1 : 0;
    }
    return found;
}

/// The names of the colours inside a rectangle.
QSet<QString> colorsIn(const QImage& image, const QRect& rect)
{
    QSet<QString> found;
    for (int y = rect.top(); y <= rect.bottom(); ++y) {
        for (int x = rect.left(); x <= rect.right(); ++x)
            found.insert(image.pixelColor(x, y).name());
    }
    return found;
}

QSet<QString> names(const QVector<QRgb>& colors)
{
    QSet<QString> found;
    for (const QRgb color : colors)
        found.insert(QColor(color).name());
    return found;
}

} // namespace

class MydelegateTest : public QObject
{
    Q_OBJECT

private slots:
    void fillsAUsableCellByItsState_data();
    void fillsAUsableCellByItsState();
    void paintsACellOutOfUseGrey_data();
    void paintsACellOutOfUseGrey();
    void paintsThreeCornersOutOfUseWhateverTheySay_data();
    void paintsThreeCornersOutOfUseWhateverTheySay();
    void takesACellForUsableUnlessItSaysNo_data();
    void takesACellForUsableUnlessItSaysNo();
    void putsTheSwatchAtTheLeftInTheMiddle_data();
    void putsTheSwatchAtTheLeftInTheMiddle();
    void paintsABlackSwatchForATextThatIsNoColor();
    void startsTheTextBesideTheSwatch();
    void endsALongTextWithAnEllipsisBeforeTheRightEdge();
    void centersTheTextVertically_data();
    void centersTheTextVertically();
    void cutsATallTextOffAtTheEdges();
    void paintsNoTextIntoASpacer();
    void paintsACellThatIsGone();
    void leavesThePainterAsItWas();
    void showsHoverAndSelectionInAView();
};

void MydelegateTest::fillsAUsableCellByItsState_data()
{
    QTest::addColumn<QStyle::State>("state");
    QTest::addColumn<QRgb>("background");
    const QStyle::State none = QStyle::State_Enabled;
    QTest::newRow("plain") << none << black;
    QTest::newRow("under the mouse") << (none | QStyle::State_MouseOver) << hovered;
    QTest::newRow("selected") << (none | QStyle::State_Selected) << marked;
    QTest::newRow("selected under the mouse")
        << (none | QStyle::State_Selected | QStyle::State_MouseOver) << marked;
    QTest::newRow("with focus") << (none | QStyle::State_HasFocus | QStyle::State_Active) << black;
}

void MydelegateTest::fillsAUsableCellByItsState()
{
    QFETCH(QStyle::State, state);
    QFETCH(QRgb, background);
    const auto model = grid();
    name(*model, 2, 2, "Fog");
    const QImage image = painted(model->index(2, 2), state);

    QCOMPARE(colorsIn(image, usualCell), names({background, swatch, white}));
    QCOMPARE(colorsIn(image, QRect(20, 10, 5, 30)), names({background}));
    QCOMPARE(colorsIn(image, QRect(20 + 20, 10, 5, 30)), names({background}));
    QCOMPARE(colorsIn(image, QRect(20 + 90, 10, 5, 30)), names({background}));
    QCOMPARE(count(image, paper), 200 * 100 - 95 * 30); // nothing is painted beside the cell
}

void MydelegateTest::paintsACellOutOfUseGrey_data()
{
    QTest::addColumn<QStyle::State>("state");
    const QStyle::State none = QStyle::State_Enabled;
    QTest::newRow("plain") << none;
    QTest::newRow("under the mouse") << (none | QStyle::State_MouseOver);
    QTest::newRow("selected") << (none | QStyle::State_Selected | QStyle::State_MouseOver);
}

void MydelegateTest::paintsACellOutOfUseGrey()
{
    QFETCH(QStyle::State, state);
    const auto model = grid();
    name(*model, 2, 2, "Fog");
    model->setData(model->index(2, 2), "0", ItemRole::Avail);
    model->setData(model->index(2, 2), "green", Qt::ForegroundRole); // as the switch pad has it
    const QImage image = painted(model->index(2, 2), state);

    QCOMPARE(colorsIn(image, usualCell), names({inactive, inactiveText}));
    QCOMPARE(colorsIn(image, QRect(20, 10, 25, 30)), names({inactive})); // no swatch
    QCOMPARE(count(image, paper), 200 * 100 - 95 * 30);
}

void MydelegateTest::paintsThreeCornersOutOfUseWhateverTheySay_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("col");
    QTest::addColumn<bool>("usable");
    QTest::newRow("top left") << 0 << 0 << true;
    QTest::newRow("top right") << 0 << 11 << false;
    QTest::newRow("bottom left") << 11 << 0 << false;
    QTest::newRow("bottom right") << 11 << 11 << false;
    QTest::newRow("top") << 0 << 10 << true;
    QTest::newRow("right") << 10 << 11 << true;
    QTest::newRow("left") << 10 << 0 << true;
    QTest::newRow("bottom") << 11 << 1 << true;
}

void MydelegateTest::paintsThreeCornersOutOfUseWhateverTheySay()
{
    QFETCH(int, row);
    QFETCH(int, col);
    QFETCH(bool, usable);
    const auto model = grid();
    name(*model, row, col, "Fog");
    QCOMPARE(model->index(row, col).data(ItemRole::Avail).toString(), QString("1"));
    const QImage image = painted(model->index(row, col), QStyle::State_Enabled | QStyle::State_Selected);
    QCOMPARE(colorsIn(image, usualCell),
             usable ? names({marked, swatch, white}) : names({inactive, inactiveText}));
}

void MydelegateTest::takesACellForUsableUnlessItSaysNo_data()
{
    QTest::addColumn<QString>("avail");
    QTest::newRow("empty") << "";
    QTest::newRow("other") << "2";
    QTest::newRow("written otherwise") << "00";
}

void MydelegateTest::takesACellForUsableUnlessItSaysNo()
{
    QFETCH(QString, avail);
    const auto model = grid();
    name(*model, 2, 2, "Fog");
    model->setData(model->index(2, 2), avail, ItemRole::Avail);
    QCOMPARE(colorsIn(painted(model->index(2, 2)), usualCell), names({black, swatch, white}));
}

void MydelegateTest::putsTheSwatchAtTheLeftInTheMiddle_data()
{
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("top"); // of the swatch, below the cell's top
    QTest::newRow("usual") << 30 << 7;
    QTest::newRow("one more") << 31 << 8;
    QTest::newRow("tall") << 60 << 22;
    QTest::newRow("16") << 16 << 0;
    QTest::newRow("as tall as the swatch") << 15 << 0;
    QTest::newRow("14") << 14 << 0;
    QTest::newRow("13") << 13 << -1;
    QTest::newRow("12") << 12 << -1;
    QTest::newRow("spacer") << 5 << -5;
}

void MydelegateTest::putsTheSwatchAtTheLeftInTheMiddle()
{
    QFETCH(int, height);
    QFETCH(int, top);
    const auto model = grid();
    name(*model, 2, 2, "");
    const QImage image = painted(model->index(2, 2), QStyle::State_Enabled, QRect(20, 10, 95, height));
    QCOMPARE(extent(image, swatch), QRect(20 + 5, 10 + top, 15, 15));
    QCOMPARE(count(image, swatch), 15 * 15);
}

void MydelegateTest::paintsABlackSwatchForATextThatIsNoColor()
{
    const auto model = grid();
    name(*model, 2, 2, "Fog");
    model->setData(model->index(2, 2), "purplish", Qt::DecorationRole);
    const QImage image = painted(model->index(2, 2), QStyle::State_Enabled | QStyle::State_Selected);
    QCOMPARE(extent(image, black), QRect(20 + 5, 10 + 7, 15, 15));
    QCOMPARE(count(image, black), 15 * 15);
}

void MydelegateTest::startsTheTextBesideTheSwatch()
{
    // The line under the text shows where the text begins, whatever room the letters leave around them.
    QFont underlined = hardEdged(12);
    underlined.setUnderline(true);
    const auto model = grid();
    name(*model, 2, 2, "Fog");
    QCOMPARE(extent(painted(model->index(2, 2), QStyle::State_Enabled, usualCell, underlined), white).left(),
             20 + 25);
    model->setData(model->index(2, 2), "0", ItemRole::Avail);
    QCOMPARE(extent(painted(model->index(2, 2), QStyle::State_Enabled, usualCell, underlined), inactiveText)
                 .left(),
             20 + 25);
}

void MydelegateTest::endsALongTextWithAnEllipsisBeforeTheRightEdge()
{
    QFont underlined = hardEdged(12);
    underlined.setUnderline(true);
    const auto model = grid();
    name(*model, 2, 2, QString(60, 'H'));
    const QImage image = painted(model->index(2, 2), QStyle::State_Enabled, usualCell, underlined);
    const QRect text = extent(image, white);
    QCOMPARE(text.left(), 20 + 25);
    const QFontMetrics metrics(underlined);
    QVERIFY(text.right() <= 20 + 95 - 1 - 5);
    QVERIFY(text.right() > 20 + 95 - 1 - 5 - metrics.horizontalAdvance('H'));
    // As many whole letters as leave room for the ellipsis.
    const QString ellipsis(QChar(0x2026));
    int letters = 0;
    while (metrics.horizontalAdvance(QString(letters + 1, 'H') + ellipsis) <= 95 - 25 - 5)
        ++letters;
    name(*model, 2, 2, QString(letters, 'H') + ellipsis);
    QCOMPARE(image, painted(model->index(2, 2), QStyle::State_Enabled, usualCell, underlined));
    // A name that fits is whole.
    name(*model, 2, 2, QString(letters, 'H'));
    QVERIFY(image != painted(model->index(2, 2), QStyle::State_Enabled, usualCell, underlined));
}

void MydelegateTest::centersTheTextVertically_data()
{
    QTest::addColumn<int>("height");
    QTest::newRow("usual") << 30;
    QTest::newRow("tall") << 70;
    QTest::newRow("odd") << 51;
}

void MydelegateTest::centersTheTextVertically()
{
    QFETCH(int, height);
    const QFont font = hardEdged(16);
    const QFontMetrics metrics(font);
    const auto model = grid();
    name(*model, 2, 2, "HHHH");
    const QRect text =
        extent(painted(model->index(2, 2), QStyle::State_Enabled, QRect(20, 10, 95, height), font), white);
    // Capitals stand on the base line, which lies one ascent below the top of the centred line of text.
    const int baseLine = 10 + (height - metrics.height()) / 2 + metrics.ascent();
    QVERIFY2(qAbs(text.bottom() + 1 - baseLine) <= 1,
             qPrintable(QString("the text stands at %1, not %2").arg(text.bottom() + 1).arg(baseLine)));
}

void MydelegateTest::cutsATallTextOffAtTheEdges()
{
    const auto model = grid();
    name(*model, 2, 2, "H");
    const QRect cell(20, 40, 95, 20);
    const QImage image = painted(model->index(2, 2), QStyle::State_Enabled, cell, hardEdged(60));
    const QRect text = extent(image, white);
    QCOMPARE(text.top(), cell.top());
    QCOMPARE(text.bottom(), cell.bottom());
    QCOMPARE(count(image, paper), 200 * 100 - 95 * 20);
}

void MydelegateTest::paintsNoTextIntoASpacer()
{
    const auto model = grid();
    name(*model, 1, 1, "Fog");
    model->setData(model->index(1, 1), "0", ItemRole::Avail);
    const QImage image = painted(model->index(1, 1), QStyle::State_Enabled, QRect(20, 10, 5, 5));
    QCOMPARE(count(image, inactive), 5 * 5);
    QCOMPARE(count(image, paper), 200 * 100 - 5 * 5);
}

void MydelegateTest::paintsACellThatIsGone()
{
    const auto model = grid();
    name(*model, 2, 2, "Fog");
    const QModelIndex gone = model->index(2, 2);
    model->removeRows(0, 12);
    QCOMPARE(colorsIn(painted(gone), usualCell), names({black}));
    QCOMPARE(colorsIn(painted(QModelIndex()), usualCell), names({black}));
}

void MydelegateTest::leavesThePainterAsItWas()
{
    const auto model = grid();
    name(*model, 2, 2, "Fog");
    QImage image(200, 100, QImage::Format_RGB32);
    QPainter painter(&image);
    const QPen pen(Qt::yellow, 7);
    const QFont font = hardEdged(33);
    painter.setPen(pen);
    painter.setFont(font);
    QStyleOptionViewItem option;
    option.rect = usualCell;
    const QStringList answers{"1", "0"};
    for (const QString& avail : answers) {
        model->setData(model->index(2, 2), avail, ItemRole::Avail);
        Mydelegate().paint(&painter, option, model->index(2, 2));
        QCOMPARE(painter.pen(), pen);
        QCOMPARE(painter.font(), font);
        QVERIFY(!painter.hasClipping());
    }
}

void MydelegateTest::showsHoverAndSelectionInAView()
{
    const auto model = grid();
    QTableView view;
    view.setModel(model.get());
    view.setItemDelegate(new Mydelegate(&view));
    view.setMouseTracking(true);
    view.setSelectionMode(QAbstractItemView::SingleSelection);
    view.horizontalHeader()->hide();
    view.verticalHeader()->hide();
    view.resize(1400, 500);
    view.show();
    const auto background = [&view](int row, int col) {
        const QImage image = view.viewport()->grab().toImage();
        return image.pixel(view.visualRect(view.model()->index(row, col)).topLeft() + QPoint(1, 1));
    };
    QCOMPARE(background(3, 3), black);

    const QPoint over = view.visualRect(model->index(3, 3)).center();
    QMouseEvent move(QEvent::MouseMove, over, view.viewport()->mapToGlobal(over), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    QApplication::sendEvent(view.viewport(), &move);
    QCOMPARE(background(3, 3), hovered);
    QCOMPARE(background(3, 4), black);

    QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, over);
    QCOMPARE(background(3, 3), marked);
    QCOMPARE(background(3, 4), black);
}

QTEST_MAIN(MydelegateTest)
#include "tst_mydelegate.moc"
