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

bool isDark()
{
    return qEnvironmentVariableIsSet("VEMO_DARK");
}

bool isRatioFractional()
{
    const double ratio = DPIinfo::getInstance().getDPR();
    return ratio != int(ratio);
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

QString compareMirrored(const QImage &picture, const QImage &stored)
{
    const QImage mirrored = picture.mirrored(true, false);
    if (stored.size() != mirrored.size())
        return "has another size from right to left";
    const double difference = layoutDifference(mirrored, stored);
    const QString measured = QString("%1 % is not mirrored").arg(100 * difference, 0, 'f', 1);
    qInfo("%s", qPrintable(measured));
    return difference <= kUnmirrored ? QString() : measured;
}

/// Where the pictures of this run are stored, below baselines/.
QString folderName()
{
    const QString plain = (isDark() ? "dark-" : "") + factor();
    return isMirrored() ? plain + "-mirrored" : plain;
}

QString pathOf(const QString &folder)
{
    return QStringLiteral(VEMO_BASELINES "/") + folder;
}

/// The output for the script that updates the pictures.
void tell(const char *what, const QString &place)
{
    std::printf("%s baselines%s\n", what, qPrintable(place.mid(int(qstrlen(VEMO_BASELINES)))));
}

void store(const QString &name, const QImage &picture, StoredPictures &stored)
{
    const bool isNew = stored.picture(name).isNull();
    QVERIFY(stored.store(name, picture));
    tell(isNew ? "added" : "changed", stored.place(name));
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
    const QString folder = pathOf(folderName());
    const bool isSheet = isDark() || isRatioFractional();
    m_stored = isSheet ? picturesInSheet(QString("%1/%2.png").arg(folder, m_family))
                       : picturesInFolder(folder, m_family);
    if (QT_VERSION >= QT_VERSION_CHECK(6, 0, 0))
        m_of_qt6 = picturesInSheet(QString("%1-qt6/%2.png").arg(folder, m_family));
    if (isDark())
        QVERIFY(setDefaultThemeMode(DefaultThemeMode::Dark));
    startDefaultTheme();
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    if (qEnvironmentVariableIsSet("VEMO_STYLE_STOCK"))
        applyDefaultThemeStyle(*qApp);
    else
        QApplication::setStyle(QStyleFactory::create("fusion"));
    QApplication::setPalette(
        isDark() ? defaultThemePalette() : QPalette(QColor(0xFFFFFF), QColor(0xF5F7FA)));
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
    const QImage picture = look.take();
    const QImage stored = m_stored->picture(look.name);
    if (isMirrored() && stored.isNull()) {
        const auto others = picturesInFolder(pathOf(factor()), m_family);
        const QString problem = compareMirrored(picture, others->picture(look.name));
        if (problem.isEmpty() || !isUpdating()) {
            QVERIFY2(problem.isEmpty(), qPrintable(problem));
            return;
        }
    }
    const QString problem = compare(look.name, picture, *m_stored);
    if (m_of_qt6) {
        compareOfQt6(look.name, picture, problem.isEmpty());
        return;
    }
    if (isUpdating() && !problem.isEmpty())
        store(look.name, picture, *m_stored);
    else
        QVERIFY2(problem.isEmpty(), qPrintable(problem));
}

QString BaselineTest::compare(
    const QString &name, const QImage &picture, const StoredPictures &stored) const
{
    return compareWithStored(picture, stored.picture(name), stored.place(name),
        QString(VEMO_DIFFERENCES "/%1/%2-%3.png").arg(folderName(), m_family, name));
}

void BaselineTest::compareOfQt6(const QString &name, const QImage &picture, bool isAsInQt5)
{
    const bool isStored = m_of_qt6->names().contains(name);
    if (isAsInQt5 && isStored && isUpdating()) {
        tell("removed", m_of_qt6->place(name));
        QVERIFY(m_of_qt6->remove(name));
        return;
    }
    QVERIFY2(!isAsInQt5 || !isStored, "stored twice, although Qt 6 draws it like Qt 5");
    const QString problem = isAsInQt5 ? QString() : compare(name, picture, *m_of_qt6);
    if (isUpdating() && !problem.isEmpty())
        store(name, picture, *m_of_qt6);
    else
        QVERIFY2(problem.isEmpty(), qPrintable(problem));
}

void BaselineTest::everyStoredPictureIsLookedAt()
{
    QVERIFY(isUpdating() || isMirrored() || !m_stored->names().isEmpty());
    for (StoredPictures *stored : {m_stored.get(), m_of_qt6.get()}) {
        QStringList left = stored ? stored->names() : QStringList();
        for (const Look &look : looks())
            left.removeOne(look.name);
        if (!isUpdating())
            QVERIFY2(left.isEmpty(), qPrintable(left.join('\n')));
        for (const QString &name : qAsConst(left)) {
            tell("removed", stored->place(name));
            QVERIFY(stored->remove(name));
        }
    }
}

// Otherwise a state was not reached, or the theme does not show it. Disabled states may look alike.
void BaselineTest::noTwoStoredPicturesAreAlike()
{
    QVector<QPair<QString, QImage>> earlier;
    for (const QString &name : m_stored->names()) {
        const QImage picture = m_stored->picture(name);
        for (const auto &[otherName, other] : qAsConst(earlier)) {
            if (name.endsWith("disabled") && otherName.endsWith("disabled"))
                continue;
            const bool isAlike =
                picture.size() == other.size() && compared(other, picture).isEqual();
            QVERIFY2(!isAlike, qPrintable(QString("%1 is like %2").arg(name, otherName)));
        }
        earlier.append({name, picture});
    }
}
