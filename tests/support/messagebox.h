#pragma once

#include <QApplication>
#include <QMessageBox>
#include <QTimer>

namespace TestSupport {

// Answers the next message box once it is up (a dialog under test opens it with its own
// event loop), recording its title and text.
inline void answerNextMessageBox(QString *text, QString *title = nullptr)
{
    QTimer::singleShot(0, [=] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (!box) {
            answerNextMessageBox(text, title);
            return;
        }
        if (title)
            *title = box->windowTitle();
        *text = box->text();
        box->accept();
    });
}

} // namespace TestSupport
