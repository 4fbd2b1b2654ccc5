// SPDX-License-Identifier: MIT
#include "visual/baselinetest.h"

#include <vemo/vemobutton.h>
#include <vemo/vemoiconbutton.h>

class ButtonPictures : public BaselineTest
{
    Q_OBJECT

public:
    ButtonPictures() : BaselineTest("button") { }

protected:
    Looks looks() const override;
};

Looks ButtonPictures::looks() const
{
    Looks looks;
    const QVector<QPair<int, const char *>> roles {{VemoButton::APPLY, "apply"},
        {VemoButton::CANCEL, "cancel"}, {VemoButton::SELECT_PAGING, "page"},
        {VemoButton::NONSELECT_PAGING, "other-page"}, {VemoButton::DEFAULT, "default"},
        {VemoButton::RED, "red"}};
    for (const auto &[role, name] : roles)
        addStates(looks, name, [role = role] { return new VemoButton("ab", role); });
    for (const char *name : {"bt_edit", "bt_calendar"})
        addStates(
            looks, QString(name).mid(3), [name] { return new VemoIconButton(QString(name)); });
    return looks;
}

VEMO_TEST_MAIN(ButtonPictures)
#include "tst_buttonpictures.moc"
