// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QMap>
#include <QString>

/// The translated texts of the user interface, looked up by key.
///
/// The host installs the whole table, already in the user's language, before it builds its first
/// widget; widgets take their captions from here when they are made, and again on
/// QEvent::LanguageChange. The table is
/// empty at first; a missing text shows its key on screen.
///
///     ComponentStrings::getInstance().installStrings({ { "common.ok", tr("OK") } });
///     button->setText(ComponentStrings::getInstance().getString("common.ok"));
///
/// \image html resources-language-codes.png
class VEMO_EXPORT ComponentStrings
{
public:
    /// The only instance, created on first use; it exists until the process ends.
    static ComponentStrings &getInstance();

    /// Replaces the whole table; it is not merged with an earlier one.
    void installStrings(const QMap<QString, QString> &strings);

    /// The whole table, for a host that adds its own texts: insert them into a copy and install it.
    QMap<QString, QString> strings() const { return m_strings; }

    /// installStrings(), then QEvent::LanguageChange for the application: each class that has taken
    /// texts from the table takes them again, once control returns to the event loop. A text that
    /// the host has set itself stays.
    ///
    ///     ComponentStrings::getInstance().changeStrings(table); // the user chose another language
    void changeStrings(const QMap<QString, QString> &strings);

    /// The text for key; if there is none, key itself, with a warning.
    QString getString(const QString &key) const;

private:
    ComponentStrings() = default;

    QMap<QString, QString> m_strings;
};
