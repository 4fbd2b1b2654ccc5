// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QSize>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

/// The data about a class that the widget box and forms need.
struct FormWidgetInfo
{
    const char *className;
    const char *baseName; ///< the Qt class that it extends, as the form file names it
    const char *toolTip;
    const char *whatsThis;
    QSize size; ///< initial size in design pixels; if invalid, that of the size hint
    const char *properties; ///< XML of the initial properties of a new widget
    const char *stringEditing; ///< "name:editor" or "name:editor:notr" for its texts
    QWidget *(*create)(QWidget *parent);
};

/// A widget of the library for Qt Designer, QUiLoader and QFormBuilder.
class FormWidget : public QObject, public QDesignerCustomWidgetInterface
{
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    /// info must outlive the object.
    FormWidget(const FormWidgetInfo &info, QObject *parent);

    QString name() const override;
    QString group() const override;
    QString toolTip() const override;
    QString whatsThis() const override;
    QString includeFile() const override;
    QIcon icon() const override;
    bool isContainer() const override;
    QString domXml() const override;

    /// Returns null, with a warning, if the default theme cannot be installed.
    QWidget *createWidget(QWidget *parent) override;

private:
    const FormWidgetInfo &m_info;
};
