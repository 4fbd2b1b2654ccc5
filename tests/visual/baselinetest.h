// SPDX-License-Identifier: MIT
#pragma once

#include "support/vemotest.h"
#include "visual/stage.h"
#include "visual/storedpictures.h"

#include <functional>
#include <memory>

/// A picture to compare with the stored one of that name.
struct Look
{
    QString name;
    std::function<QImage()> take;
};

Q_DECLARE_METATYPE(Look)

using Looks = QVector<Look>;
using NewWidget = std::function<QWidget *()>;
using PartOf = std::function<QWidget *(QWidget *)>;

/// All states of a widget that accepts the focus.
const QVector<State> kAllStates {
    State::Rest, State::Hover, State::Pressed, State::Focus, State::Disabled};
/// The states of a field, which looks the same while it is pressed.
const QVector<State> kFieldStates {State::Rest, State::Hover, State::Focus, State::Disabled};
/// The states of a widget that only shows the focus.
const QVector<State> kFocusStates {State::Rest, State::Focus, State::Disabled};
/// The states of a widget that the user cannot change, or whose other states are those of another.
const QVector<State> kShownStates {State::Rest, State::Disabled};

/// Appends looks of a widget, "NAME-rest", "NAME-hover" and so on. size is in design pixels.
void addStates(Looks &looks, const QString &name, const NewWidget &make,
    const QVector<State> &states = kAllStates, const QSize &size = {});

/// The same if a part of the widget is in the state.
void addPartStates(Looks &looks, const QString &name, const NewWidget &make, const PartOf &part,
    const QVector<State> &states, const QSize &size = {});

/// Base of the tests that compare the look of widgets with pictures in baselines/FACTOR/. If the
/// environment contains VEMO_UPDATE_BASELINES, they store pictures that differ instead: see
/// scripts/update-baselines. If it contains VEMO_STYLE_STOCK, stock widgets are styled, which must
/// not change the pictures of ours. If it contains VEMO_DARK, the dark look is shown, whose
/// pictures are in baselines/dark-FACTOR/, a file for each family. If it contains VEMO_MIRRORED,
/// everything is laid out from right to left, which must give the mirror image of the stored
/// pictures except for texts and drawings. Where these are a large part, a picture of its own is
/// stored in baselines/FACTOR-mirrored/. What Qt 6 itself draws differently is stored a second
/// time, in a folder with "-qt6" at the end of its name.
class BaselineTest : public VemoTest
{
    Q_OBJECT

protected:
    explicit BaselineTest(const QString &family) : m_family(family) { }

    virtual Looks looks() const = 0;
    /// Called after the theme has been installed. Its settings apply to all pictures.
    virtual void prepare() { }

private Q_SLOTS:
    void initTestCase();
    void looksAsStored_data();
    void looksAsStored();
    void everyStoredPictureIsLookedAt();
    void noTwoStoredPicturesAreAlike();

private:
    QString compare(const QString &name, const QImage &picture, const StoredPictures &stored) const;
    void compareOfQt6(const QString &name, const QImage &picture, bool isAsInQt5);

    QString m_family;
    std::unique_ptr<StoredPictures> m_stored;
    std::unique_ptr<StoredPictures> m_of_qt6; ///< null with Qt 5
};
