// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/QuitGuard.h"

#include "core/AppViewModel.h"
#include "ui/Theme.h"

#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QMessageBox>
#include <QPushButton>
#include <QSessionManager>
#include <QTimer>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

// Longer than the stop's own escalation and watchdog (3 s), so a logout
// waits for the batch's end and never for more.
constexpr int kSessionStopWaitMs = 5000;

} // namespace

QuitGuard::QuitGuard(AppViewModel &model, QWidget &window)
    : QObject(&window)
    , m_model(model)
    , m_window(&window)
{
    window.installEventFilter(this);
    connect(&m_model, &AppViewModel::isRunningChanged, this, &QuitGuard::onRunningChanged);
    connect(qApp, &QGuiApplication::commitDataRequest, this, &QuitGuard::onCommitData,
            Qt::DirectConnection);
}

QMessageBox *QuitGuard::makeQuestion(AppViewModel &model, QWidget *window)
{
    auto *box = new QMessageBox(window);
    box->setObjectName(u"quitQuestion"_s);
    box->setIcon(QMessageBox::Warning);
    box->setWindowTitle(theme::literal(model.t("quit_running_title")));
    box->setText(theme::literal(model.t("quit_running_title")));
    box->setInformativeText(theme::literal(model.t("quit_running_message")));
    QPushButton *stop = box->addButton(theme::literal(model.t("quit_stop_and_quit")),
                                       QMessageBox::DestructiveRole);
    stop->setObjectName(u"quitStop"_s);
    QPushButton *later
        = box->addButton(theme::literal(model.t("quit_when_done")), QMessageBox::AcceptRole);
    later->setObjectName(u"quitWhenDone"_s);
    QPushButton *keep
        = box->addButton(theme::literal(model.t("quit_keep_running")), QMessageBox::RejectRole);
    keep->setObjectName(u"quitKeep"_s);
    // Enter and Escape both keep the batch: giving up work takes a click.
    box->setDefaultButton(keep);
    box->setEscapeButton(keep);
    return box;
}

QuitGuard::Choice QuitGuard::ask()
{
    if (m_asker)
        return m_asker();
    QMessageBox *box = makeQuestion(m_model, m_window);
    box->exec();
    const QString clicked = box->clickedButton() ? box->clickedButton()->objectName() : QString();
    box->deleteLater();
    if (clicked == u"quitStop"_s)
        return Choice::StopAndQuit;
    if (clicked == u"quitWhenDone"_s)
        return Choice::QuitWhenDone;
    return Choice::KeepRunning;
}

bool QuitGuard::mayQuit()
{
    if (!m_model.isRunning())
        return true;
    // Already stopping in order to quit, or the question is open: wait.
    if (m_asking || (m_quitWhenIdle && m_model.isStopping()))
        return false;
    m_asking = true;
    const Choice choice = ask();
    m_asking = false;
    if (choice == Choice::KeepRunning) {
        m_quitWhenIdle = false;
        return false;
    }
    // The batch may have ended while the question was open.
    if (!m_model.isRunning())
        return true;
    m_quitWhenIdle = true;
    if (choice == Choice::StopAndQuit) {
        // The normal stop: the engine finishes the photo in flight if it
        // can within the escalation; the window stays and shows it.
        m_model.stopProcessing();
        m_model.setStatus(u"status_stopping_to_quit"_s);
        m_model.appendLog(u"⚠️ Quitting once the engine has stopped..."_s);
    } else {
        m_model.appendLog(u"⏳ Orvanta will quit when the batch ends."_s);
    }
    return false;
}

bool QuitGuard::mayEndSession(bool mayAsk)
{
    if (!m_model.isRunning())
        return true;
    const Choice choice = mayAsk ? ask() : Choice::StopAndQuit;
    if (choice == Choice::KeepRunning)
        return false;
    if (choice == Choice::QuitWhenDone) {
        // The session cannot wait for a whole batch: it is kept, and the
        // application quits on its own when the batch is over.
        m_quitWhenIdle = true;
        return false;
    }
    m_quitWhenIdle = true;
    m_model.stopProcessing();
    m_model.setStatus(u"status_stopping_to_quit"_s);
    QEventLoop loop;
    connect(&m_model, &AppViewModel::isRunningChanged, &loop, [this, &loop] {
        if (!m_model.isRunning())
            loop.quit();
    });
    QTimer::singleShot(kSessionStopWaitMs, &loop, &QEventLoop::quit);
    if (m_model.isRunning())
        loop.exec();
    return true;
}

void QuitGuard::onRunningChanged()
{
    if (!m_quitWhenIdle || m_model.isRunning())
        return;
    m_quitWhenIdle = false;
    emit quitting();
    // Queued, so the end of the run is fully shown and recorded first.
    QTimer::singleShot(0, this, [window = m_window] {
        if (window)
            window->close();
        QCoreApplication::quit();
    });
}

void QuitGuard::onCommitData(QSessionManager &manager)
{
    if (!m_model.isRunning())
        return;
    const bool mayAsk = manager.allowsInteraction();
    const bool end = mayEndSession(mayAsk);
    if (mayAsk)
        manager.release();
    if (!end)
        manager.cancel();
}

bool QuitGuard::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_window && event->type() == QEvent::Close && !mayQuit()) {
        event->ignore();
        return true;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace orvanta
