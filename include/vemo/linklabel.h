// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/clickablelabel.h>
#include <vemo/enterevent.h>

/// A clickable label that looks like a hyperlink under the pointer (pointing hand, underline) and
/// stores an address. It does not open the address; its owner does. To assistive tools it is a link
/// that can be pressed.
///
/// The hand is an override cursor of the application: an enabled label sets one whenever the
/// pointer enters, and restores the topmost override cursor, even one set by other code, whenever
/// the pointer leaves. A label that is disabled under the pointer keeps its hand until it is
/// enabled and left, or deleted. Deleting it removes the cursors that it has set, and no others.
///
/// It has no meta-object: metaObject() and style sheets treat it as a ClickableLabel, so use
/// dynamic_cast to recognise it. Requires: nothing.
///
///     auto *link = new LinkLabel(tr("Licence"), about);
///     link->setHyperLink("https://example.com/licence");
///     connect(link, &LinkLabel::clicked, this, &MainWindow::openLicence); // uses getHyperLink()
///
/// \image html labels-labels-to-press.png
class VEMO_EXPORT LinkLabel : public ClickableLabel
{
public:
    /// Deliberate: the parameter type is QLabel, although any widget would do.
    explicit LinkLabel(const QString &text, QLabel *parent = nullptr);
    /// Creates a label without a text in any widget.
    explicit LinkLabel(QWidget *parent = nullptr);
    ~LinkLabel() override;

    /// Stores the address, without checking it.
    void setHyperLink(const QString &link) { m_hyperLink = link; }
    /// The address; initially empty.
    QString getHyperLink() const { return m_hyperLink; }

    /// Sets whether the text is underlined under the pointer, true by default. Takes effect the
    /// next time the pointer enters.
    void setHoverUnderline(bool on) { m_hoverUnderline = on; }
    /// Whether the text is underlined under the pointer.
    bool hoverUnderline() const { return m_hoverUnderline; }

protected:
    bool event(QEvent *event) override;
    void enterEvent(VemoEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;

private:
    void setUnderlined(bool on);
    void leaveUnlessUnderPointer();

    bool m_hoverUnderline = true;
    QString m_hyperLink;
    int m_cursorsSet = 0; ///< override cursors that have not been restored yet
    bool m_has_left = false; ///< by its own leave event; Qt may send another one
};
