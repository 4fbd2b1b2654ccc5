// SPDX-License-Identifier: MIT
#include "visual/baselinetest.h"

#include "support/testhost.h"
#include "visual/boxfont.h"
#include "visual/comparison.h"

#include <vemo/defaulttheme.h>
#include <vemo/dpiinfo.h>

#include <QStyleFactory>

#include <cstdio>

namespace {

/// Pictures and short texts are a small part of a widget.
constexpr double kUnmirrored = 0.04;

const QVector<QPair<State, const char *>> kNames {{State::Rest, "rest"}, {State::Hover, "hover"},
    {State::Pressed, "pressed"}, {State::Focus, "focus"}, {State::Disabled, "disabled"}};

bool isUpdating()
{
    return qEnvironmentVariableIsSet("VEMO_UPDATE_BASELINES");
}

/// "1", "1.5", and "1x2" at a device pixel ratio of 2.
QString factor()
{
    const DPIinfo &screen = DPIinfo::getInstance();
    const QString dpi = QString::number(screen.getDPI());
    return screen.getDPR() > 1 ? QString("%1x%2").arg(dpi).arg(screen.getDPR()) : dpi;
}

/// Then the mirror images of what is drawn from right to left are compared.
bool isMirrored()
{
    return qEnvironmentVariableIsSet("VEMO_MIRRORED");
}

/// The part of the area where two pictures differ in cells of a few pixels: in how they are laid
/// out, and not in letters and drawings, which nobody mirrors.
double layoutDifference(const QImage &a, const QImage &b)
{
    constexpr int kCell = 8;
    constexpr int kTolerance = 24; // of 255
    const QSize cells = a.size() / kCell;
    const auto coarse = [&](const QImage &picture) {
        return picture.scaled(cells, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    };
    const QImage first = coarse(a);
    const QImage second = coarse(b);
    int count = 0;
    for (int y = 0; y < cells.height(); ++y) {
        for (int x = 0; x < cells.width(); ++x)
            count += qAbs(qGray(first.pixel(x, y)) - qGray(second.pixel(x, y))) > kTolerance;
    }
    return double(count) / (cells.width() * cells.height());
}

QString compareMirrored(const QImage &picture, const QString &path)
{
    const QImage stored(path);
    const QImage mirrored = picture.mirrored(true, false);
    if (stored.size() != mirrored.size())
        return "has another size from right to left";
    const double difference = layoutDifference(mirrored, stored);
    const QString measured = QString("%1 % is not mirrored").arg(100 * difference, 0, 'f', 1);
    qInfo("%s", qPrintable(measured));
    return difference <= kUnmirrored ? QString() : measured;
}

QString folder(const QString &layout = {})
{
    return QStringLiteral(VEMO_BASELINES "/") + factor() + layout;
}

/// The pictures from right to left that are not the mirror images of others.
QString mirroredFolder()
{
    return folder("-mirrored");
}

QString storedFolder()
{
    return isMirrored() ? mirroredFolder() : folder();
}

/// The output for the script that updates the pictures.
void tell(const char *what, const QString &path)
{
    std::printf("%s baselines%s\n", what, qPrintable(path.mid(int(qstrlen(VEMO_BASELINES)))));
}

} // namespace

void addStates(Looks &looks, const QString &name, const NewWidget &make,
    const QVector<State> &states, const QSize &size)
{
    addPartStates(
        looks, name, make, [](QWidget *widget) { return widget; }, states, size);
}

void addPartStates(Looks &looks, const QString &name, const NewWidget &make, const PartOf &part,
    const QVector<State> &states, const QSize &size)
{
    for (const auto &[state, suffix] : kNames) {
        if (!states.contains(state))
            continue;
        looks.append({name + '-' + suffix, [=, state = state] {
                          QWidget *widget = make();
                          Stage stage(widget, size);
                          stage.put(state, part(widget));
                          return stage.picture();
                      }});
    }
}

void BaselineTest::initTestCase()
{
    startDefaultTheme();
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    if (qEnvironmentVariableIsSet("VEMO_STYLE_STOCK"))
        applyDefaultThemeStyle(*qApp);
    else
        QApplication::setStyle(QStyleFactory::create("fusion"));
    QApplication::setPalette(QPalette(QColor(0xFFFFFF), QColor(0xF5F7FA)));
    QApplication::setFont(boxFont());
    QApplication::setCursorFlashTime(0);
    QApplication::setEffectEnabled(Qt::UI_General, false);
    if (isMirrored())
        QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    prepare();
}

void BaselineTest::looksAsStored_data()
{
    QTest::addColumn<Look>("look");
    for (const Look &look : looks())
        QTest::newRow(qPrintable(look.name)) << look;
}

void BaselineTest::looksAsStored()
{
    QFETCH(Look, look);
    const QString file = QString("%1-%2.png").arg(m_family, look.name);
    const QString path = storedFolder() + '/' + file;
    const QImage picture = look.take();
    if (isMirrored() && !QFile::exists(path)) {
        const QString problem = compareMirrored(picture, folder() + '/' + file);
        if (problem.isEmpty() || !isUpdating()) {
            QVERIFY2(problem.isEmpty(), qPrintable(problem));
            return;
        }
    }
    const QString differences = QString(VEMO_DIFFERENCES "/%1/%2");
    const QString problem =
        compareWithFile(picture, path, differences.arg(QFileInfo(path).dir().dirName(), file));
    if (isUpdating() && !problem.isEmpty()) {
        const bool isNew = !QFile::exists(path);
        QVERIFY(storePicture(picture, path));
        tell(isNew ? "added" : "changed", path);
        return;
    }
    QVERIFY2(problem.isEmpty(), qPrintable(problem));
}

void BaselineTest::everyStoredPictureIsLookedAt()
{
    QStringList left = QDir(storedFolder()).entryList({m_family + "-*.png"}, QDir::Files);
    QVERIFY(isUpdating() || isMirrored() || !left.isEmpty());
    for (const Look &look : looks())
        left.removeOne(QString("%1-%2.png").arg(m_family, look.name));
    if (isUpdating()) {
        for (const QString &file : qAsConst(left)) {
            const QString path = storedFolder() + '/' + file;
            QVERIFY(QFile::remove(path));
            tell("removed", path);
        }
        return;
    }
    QVERIFY2(left.isEmpty(), qPrintable(left.join('\n')));
}

// Otherwise a state was not reached, or the theme does not show it. Disabled states may look alike.
void BaselineTest::noTwoStoredPicturesAreAlike()
{
    QVector<QPair<QString, QImage>> earlier;
    const QDir stored(storedFolder());
    for (const QString &file : stored.entryList({m_family + "-*.png"}, QDir::Files)) {
        const QImage picture(stored.filePath(file));
        for (const auto &[otherFile, other] : qAsConst(earlier)) {
            if (file.endsWith("disabled.png") && otherFile.endsWith("disabled.png"))
                continue;
            const bool isAlike =
                picture.size() == other.size() && compared(other, picture).isEqual();
            QVERIFY2(!isAlike, qPrintable(QString("%1 is like %2").arg(file, otherFile)));
        }
        earlier.append({file, picture});
    }
}
