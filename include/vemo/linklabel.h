// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/clickablelabel.h>

/// A clickable label that looks like a hyperlink under the pointer (pointing hand, underline) and
/// carries its target. It does not open the target: that is its owner's part. Assistive tools find
/// a link, and can press it.
///
/// The hand is an override cursor of the application: an enabled label sets one each time the
/// pointer enters, and restores the topmost override cursor, whoever set it, each time the pointer
/// leaves. A label that is disabled under the pointer keeps its hand set until it is enabled and
/// left, or deleted. Deleting it removes the hands that it set, and no other cursor.
///
/// It has no meta-object of its own: metaObject() is ClickableLabel's, style sheets know it by that
/// name, and dynamic_cast tells it from one. It needs no resources.
///
///     auto *link = new LinkLabel(tr("Licence"), about);
///     link->setHyperLink("https://example.com/licence");
///     connect(link, SIGNAL(clicked()), this, SLOT(slotOpenLicence())); // reads getHyperLink()
///
/// \image html labels-labels-to-press.png
class VEMO_EXPORT LinkLabel : public ClickableLabel
{
public:
    /// Deliberate: the parameter type is QLabel, although any widget would do.
    explicit LinkLabel(const QString &text, QLabel *parent = nullptr);
    /// Without a text, in any widget.
    explicit LinkLabel(QWidget *parent = nullptr);
    ~LinkLabel() override;

    /// Stores the target, as any text; nothing checks it.
    void setHyperLink(const QString &link) { m_hyperLink = link; }
    /// The target that was set; empty until then.
    QString getHyperLink() const { return m_hyperLink; }

    /// Whether the text is underlined while the pointer is over it, which it is by default; takes
    /// effect when the pointer next enters.
    void setHoverUnderline(bool on) { m_hoverUnderline = on; }
    /// What setHoverUnderline() was told last.
    bool hoverUnderline() const { return m_hoverUnderline; }

protected:
    bool event(QEvent *event) override;
    void enterEvent(QEvent *event) override;
    void leaveEvent(QEvent *event) override;

private:
    void setUnderlined(bool on);
    void leaveUnlessUnderPointer();

    bool m_hoverUnderline = true;
    QString m_hyperLink;
    int m_hands = 0; ///< set on entering, not restored yet
    bool m_has_left = false; ///< by a leave event of its own, which Qt may send once more
};
