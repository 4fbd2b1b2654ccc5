// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QSize>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

/// What the widget box and a form need to know of one class.
struct FormWidgetInfo
{
    const char *className;
    const char *baseName; ///< the Qt class that it extends, as the form file names it
    const char *toolTip;
    const char *whatsThis;
    QSize size; ///< in a new form, in design pixels; not valid: that of its size hint
    const char *properties; ///< XML of those that a new widget starts with
    const char *stringEditing; ///< "name:editor" or "name:editor:notr" of its texts
    QWidget *(*create)(QWidget *parent);
};

/// One widget of the library as Qt Designer, QUiLoader and QFormBuilder see it.
class FormWidget : public QObject, public QDesignerCustomWidgetInterface
{
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    /// The info must live as long.
    FormWidget(const FormWidgetInfo &info, QObject *parent);

    QString name() const override;
    QString group() const override;
    QString toolTip() const override;
    QString whatsThis() const override;
    QString includeFile() const override;
    QIcon icon() const override;
    bool isContainer() const override;
    QString domXml() const override;

    /// Null, with a warning, where the default theme can't be started.
    QWidget *createWidget(QWidget *parent) override;

private:
    const FormWidgetInfo &m_info;
};
