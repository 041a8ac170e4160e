// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Gives every test executable a private HOME and XDG folders, so nothing a
// test does touches the real user's files, and QSettings, QStandardPaths and
// the configuration file all land in a temporary directory.
#pragma once

#include <QByteArray>
#include <QDir>
#include <QString>
#include <QTemporaryDir>
#include <QtTest>

#include <cstdlib>

namespace orvanta::test {

class TestEnvironment
{
public:
    TestEnvironment()
    {
        const QByteArray root = m_dir.path().toUtf8();
        setenv("HOME", root.constData(), 1);
        for (const auto &[name, sub] : { std::pair { "XDG_CONFIG_HOME", "/.config" },
                                         std::pair { "XDG_DATA_HOME", "/.local/share" },
                                         std::pair { "XDG_STATE_HOME", "/.local/state" },
                                         std::pair { "XDG_CACHE_HOME", "/.cache" },
                                         std::pair { "XDG_RUNTIME_DIR", "/run" } }) {
            const QByteArray path = root + sub;
            QDir().mkpath(QString::fromUtf8(path));
            setenv(name, path.constData(), 1);
        }
        QFile::setPermissions(m_dir.path() + QStringLiteral("/run"),
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    QString home() const { return m_dir.path(); }

private:
    QTemporaryDir m_dir;
};

} // namespace orvanta::test

// Like QTEST_GUILESS_MAIN / QTEST_MAIN, but inside a private home.
#define ORVANTA_TEST_MAIN_IMPL(TestObject, AppType)                                                \
    int main(int argc, char *argv[])                                                               \
    {                                                                                              \
        orvanta::test::TestEnvironment environment;                                                \
        AppType app(argc, argv);                                                                   \
        QCoreApplication::setOrganizationName(QStringLiteral("orvanta"));                          \
        QCoreApplication::setApplicationName(QStringLiteral("orvanta"));                           \
        app.setAttribute(Qt::AA_Use96Dpi, true);                                                   \
        TestObject tc;                                                                             \
        QTEST_SET_MAIN_SOURCE_PATH                                                                 \
        return QTest::qExec(&tc, argc, argv);                                                      \
    }

#define ORVANTA_TEST_GUILESS_MAIN(TestObject) ORVANTA_TEST_MAIN_IMPL(TestObject, QCoreApplication)
#define ORVANTA_TEST_GUI_MAIN(TestObject) ORVANTA_TEST_MAIN_IMPL(TestObject, QGuiApplication)
#define ORVANTA_TEST_WIDGETS_MAIN(TestObject) ORVANTA_TEST_MAIN_IMPL(TestObject, QApplication)
