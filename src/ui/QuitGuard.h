// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Asks before a running batch is given up: closing the main window, Ctrl+Q,
// the application menu and a session logout all come here. The batch is
// stopped the normal way and the application quits once it has ended.
// Main thread.
#pragma once

#include <QObject>
#include <QPointer>

#include <functional>

class QMessageBox;
class QSessionManager;
class QWidget;

namespace orvanta {

class AppViewModel;

class QuitGuard : public QObject
{
    Q_OBJECT
public:
    enum class Choice { StopAndQuit, QuitWhenDone, KeepRunning };
    // Shows the question and returns the answer; tests replace it.
    using Asker = std::function<Choice()>;

    // Watches `window`'s close events and the session manager.
    QuitGuard(AppViewModel &model, QWidget &window);

    void setAsker(Asker asker) { m_asker = std::move(asker); }

    // True when the application may quit now. Otherwise the user's choice
    // has been carried out (a stop begun, a quit scheduled, or nothing).
    bool mayQuit();
    // The session is ending. With `mayAsk`, the user is asked and may keep
    // the session (returns false: the logout is cancelled); without, the
    // batch is stopped the normal way and this waits for its end, as long
    // as the stop's own escalation takes.
    bool mayEndSession(bool mayAsk);

    bool isQuitPending() const { return m_quitWhenIdle; }

    // The question itself, parented to `window`; the caller runs it.
    static QMessageBox *makeQuestion(AppViewModel &model, QWidget *window);

signals:
    // The batch has ended after a quit was chosen; the application quits.
    void quitting();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    Choice ask();
    void onRunningChanged();
    void onCommitData(QSessionManager &manager);

    AppViewModel &m_model;
    QPointer<QWidget> m_window;
    Asker m_asker;
    bool m_quitWhenIdle = false;
    bool m_asking = false;
};

} // namespace orvanta
