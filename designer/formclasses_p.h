// SPDX-License-Identifier: MIT
#pragma once

// Not API. Some classes of the library have no meta-object, or do not store what a property would
// have to return. For forms there are derived classes with the same names and with these
// properties. Code generated from a form calls the setters of the library's own classes.
//
// This file is included inside a namespace and includes nothing itself. moc processes it on its
// own, and therefore gives its classes the names used in form files, without the namespace.

class VemoButton : public ::VemoButton
{
    Q_OBJECT
    Q_PROPERTY(Role role READ role WRITE setRole)

public:
    explicit VemoButton(QWidget *parent) : ::VemoButton(parent) { }

    Role role() const { return m_role; }
    void setRole(Role role)
    {
        m_role = role;
        ::VemoButton::setRole(role);
    }

private:
    Role m_role = DEFAULT;
};

class VemoIconButton : public ::VemoIconButton
{
    Q_OBJECT
    Q_PROPERTY(QString allIcon READ allIcon WRITE setAllIcon)
    // The button sets these two properties itself.
    Q_PROPERTY(QIcon icon READ icon DESIGNABLE false STORED false)
    Q_PROPERTY(QSize iconSize READ iconSize DESIGNABLE false STORED false)

public:
    explicit VemoIconButton(QWidget *parent) : ::VemoIconButton(parent) { }

    QString allIcon() const { return m_name; }
    void setAllIcon(const QString &name)
    {
        m_name = name;
        if (name.isEmpty()) {
            setDefaultIcon(QPixmap());
            return;
        }
        ::VemoIconButton::setAllIcon(name);
        applyNormalStyle(); // updates the size, which the button would do at its next change of
                            // state
    }

private:
    QString m_name;
};

class VemoLabel : public ::VemoLabel
{
    Q_OBJECT

public:
    explicit VemoLabel(QWidget *parent) : ::VemoLabel(parent) { }
};

class LinkLabel : public ::LinkLabel
{
    Q_OBJECT
    Q_PROPERTY(QString hyperLink READ getHyperLink WRITE setHyperLink)
    Q_PROPERTY(bool hoverUnderline READ hoverUnderline WRITE setHoverUnderline)

public:
    explicit LinkLabel(QWidget *parent) : ::LinkLabel(parent) { }
};

class VemoLineEdit : public ::VemoLineEdit
{
    Q_OBJECT
    // Not a property of the library's class, where style sheets would confuse it with the field's.
    Q_PROPERTY(bool error READ hasError WRITE setError)

public:
    explicit VemoLineEdit(QWidget *parent) : ::VemoLineEdit(parent) { }
};

class VemoFootbar : public ::VemoFootbar
{
    Q_OBJECT

public:
    explicit VemoFootbar(QWidget *parent) : ::VemoFootbar(parent) { }
};

class VemoDateSelector : public ::VemoDateSelector
{
    Q_OBJECT
    // Properties of a list, which the field does not have.
    Q_PROPERTY(bool editable READ isEditable DESIGNABLE false STORED false)
    Q_PROPERTY(QString currentText READ currentText DESIGNABLE false STORED false)
    Q_PROPERTY(int currentIndex READ currentIndex DESIGNABLE false STORED false)
    Q_PROPERTY(int maxCount READ maxCount DESIGNABLE false STORED false)
    Q_PROPERTY(QString placeholderText READ placeholderText DESIGNABLE false STORED false)

public:
    explicit VemoDateSelector(QWidget *parent) : ::VemoDateSelector(parent) { }
};

class VemoTimeComboBox : public ::VemoTimeComboBox
{
    Q_OBJECT
    // The setter of the library's class does not take a QString.
    Q_PROPERTY(QString currentText READ currentText DESIGNABLE false STORED false)
    Q_PROPERTY(int maxVisibleItems READ wishedItems WRITE setMaxVisibleItems)

public:
    explicit VemoTimeComboBox(QWidget *parent)
        : ::VemoTimeComboBox(parent), m_wished_items(maxVisibleItems())
    {
    }

    /// Does not include the row of a hidden custom item.
    int wishedItems() const { return m_wished_items; }
    void setMaxVisibleItems(int count)
    {
        m_wished_items = count;
        ::VemoTimeComboBox::setMaxVisibleItems(count);
    }

private:
    int m_wished_items;
};
