// SPDX-License-Identifier: MIT
#include "copyjob.h"
#include "questions.h"
#include "texts.h"

#include <vemo/defaulttheme.h>
#include <vemo/dpiinfo.h>
#include <vemo/vemobutton.h>
#include <vemo/vemomessagesheet.h>

#include <QBoxLayout>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMovie>
#include <QTimer>

#include <memory>

namespace {

constexpr int kButtonGap = 12; // design pixels
constexpr int kRefreshTime = 100; // milliseconds

/// The sheet of a message about work, with a button that ends the work: the library's has none.
class CopySheet : public VemoMessageSheet
{
public:
    explicit CopySheet(QWidget *window)
        : VemoMessageSheet(richText("copy_preparing"), defaultThemeBusyAnimation(), window),
          m_foot(new QWidget(this)),
          m_cancel(new VemoButton(text("copy_cancel"), VemoButton::CANCEL))
    {
        setObjectName("copySheet");
        m_cancel->setObjectName("copyCancel");
        auto *row = new QHBoxLayout(m_foot);
        row->setContentsMargins(0, DPIinfo::scaled(kButtonGap), 0, 0);
        row->addStretch();
        row->addWidget(m_cancel);
        addFoot();
        movie()->setParent(this); // The sheet itself does not delete it.
    }

    VemoButton *cancelButton() const { return m_cancel; }

    void showProgress(const QString &line)
    {
        setText(line);
        addFoot();
    }

    bool event(QEvent *event) override
    {
        const bool isEscape = event->type() == QEvent::KeyPress
            && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape;
        if (!isEscape)
            return VemoMessageSheet::event(event);
        m_cancel->click();
        return true;
    }

protected:
    void showEvent(QShowEvent *event) override
    {
        VemoMessageSheet::showEvent(event);
        // The loop gives the focus to the text when it begins.
        QTimer::singleShot(0, m_cancel, SLOT(setFocus()));
    }

private:
    /// Every new text lays out the sheet without it.
    void addFoot()
    {
        layout()->addWidget(m_foot);
        adjustSize();
    }

    QWidget *m_foot; ///< holds the button
    VemoButton *m_cancel;
};

QString progressText(qint64 done, qint64 total, const QString &name)
{
    const QString amount = text("copy_amount", sizeText(done), sizeText(total)).toHtmlEscaped();
    return QString("<qt>%1<br>%2</qt>").arg(markedText("copying", {name}), amount);
}

void connectJob(CopyJob *job, CopySheet *sheet, const std::shared_ptr<CopyOutcome> &outcome)
{
    const auto shown = std::make_shared<QElapsedTimer>();
    QObject::connect(
        job, &CopyJob::progress, sheet, [=](qint64 done, qint64 total, const QString &name) {
            if (shown->isValid() && !shown->hasExpired(kRefreshTime))
                return;
            shown->start();
            sheet->showProgress(progressText(done, total, name));
        });
    QObject::connect(job, &CopyJob::finished, sheet,
        [=](const QStringList &copied, const QStringList &problems) {
            *outcome = {copied, problems};
            sheet->quit();
        });
    QObject::connect(sheet->cancelButton(), &VemoButton::clicked, job, [=] {
        sheet->cancelButton()->setEnabled(false);
        job->cancel();
    });
}

} // namespace

CopyOutcome copyUnderSheet(QWidget *window, const QStringList &sources, const QString &target)
{
    auto *sheet = new CopySheet(window);
    const auto outcome = std::make_shared<CopyOutcome>();
    // A child of the sheet: when the window goes, so does the work, and leaves nothing half done.
    auto *job = new CopyJob(sources, target, sheet);
    connectJob(job, sheet, outcome);
    job->start();
    sheet->execAndDelete();
    return *outcome;
}
