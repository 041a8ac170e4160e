// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The printf-style formatter behind every localized text with arguments.
#include "common/TestEnvironment.h"
#include "i18n/FormatArgs.h"

#include <limits>

using namespace orvanta;

class FormatArgsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void formatsDirectivesAndSurvivesMissingOrWrongArguments_data()
    {
        QTest::addColumn<QString>("format");
        QTest::addColumn<FormatArgs>("args");
        QTest::addColumn<QString>("expected");

        auto row = [](const char *name, const char *format, FormatArgs args, const char *expected) {
            QTest::newRow(name) << QString::fromUtf8(format) << args << QString::fromUtf8(expected);
        };
        row("%d", "%d Pairs Found", { 42 }, "42 Pairs Found");
        row("%i negative", "%i", { -7 }, "-7");
        row("%ld", "%ld", { qint64(1) << 40 }, "1099511627776");
        row("%lld min", "%lld", { std::numeric_limits<qint64>::min() }, "-9223372036854775808");
        row("%u", "%u", { 3000000000LL }, "3000000000");
        row("%u of negative wraps", "%u", { -1 }, "18446744073709551615");
        row("%@ string", "Loaded recipe: %@", { "Golden Hour" }, "Loaded recipe: Golden Hour");
        row("%s string", "[%s]", { "DSC0001" }, "[DSC0001]");
        row("%@ integer", "%@", { 12 }, "12");
        row("%@ real shortest", "%@", { 0.1 }, "0.1");
        row("%f default precision", "%f", { 1.5 }, "1.500000");
        row("%.1f rounds", "%.1f GB free", { 12.345 }, "12.3 GB free");
        row("%.2f", "+%.2fst", { 1.005 }, "+1.00st"); // 1.005 is 1.00499999... in binary
        row("%.3f", "%.3f%%", { 0.0125 }, "0.013%");
        row("%.0f ties to even", "%.0f %.0f", { 2.5, 3.5 }, "2 4");
        row("point always", "%.1f", { 1234567.25 }, "1234567.2");
        row("%% with args", "[%d / %d]  %d%%", { 3, 10, 30 }, "[3 / 10]  30%");
        row("width", "[%5d]", { 42 }, "[   42]");
        row("left align", "[%-5d]", { 42 }, "[42   ]");
        row("zero pad", "[%05d]", { -42 }, "[-0042]");
        row("plus flag", "%+d %+.1f", { 5, 2.0 }, "+5 +2.0");
        row("space flag", "[% d]", { 5 }, "[ 5]");
        row("integer precision", "%.3d", { 7 }, "007");
        row("hex", "%x %X %#x", { 255, 255, 255 }, "ff FF 0xff");
        row("octal", "%o %#o", { 8, 8 }, "10 010");
        row("string width and precision", "[%6.3s]", { "abcdef" }, "[   abc]");
        row("star width", "[%*d]", { 4, 7 }, "[   7]");
        row("star precision", "%.*f", { 2, 3.14159 }, "3.14");
        row("positional", "%2$@ before %1$@", { "one", "two" }, "two before one");
        row("%c from code", "%c", { 0x263A }, "☺");
        row("%e", "%e", { 12345.678 }, "1.234568e+04");
        row("%g", "%g", { 0.0001 }, "0.0001");
        row("nan", "%.1f", { std::numeric_limits<double>::quiet_NaN() }, "nan");
        row("inf", "%5.1f", { -std::numeric_limits<double>::infinity() }, " -inf");
        row("real for %d truncates", "%d", { 3.9 }, "3");
        row("integer for %f", "%.1f", { 3 }, "3.0");
        row("unicode around", "完成 %d 张", { 5 }, "完成 5 张");

        // Missing arguments leave the directive as written. The shipped text
        // "%d face(s) (40% skin damping)" holds a second directive, "% s", that
        // no caller fills.
        row("faces text", "%d face(s) (40% skin damping)", { 3 }, "3 face(s) (40% skin damping)");
        row("second of two", "%d succeeded, %d failed.", { 2 }, "2 succeeded, %d failed.");
        row("star without value", "%*d", { 4 }, "%*d");
        row("positional beyond", "%3$@|%1$@", { "a" }, "%3$@|a");
        row("lone percent at end", "100%", { 1 }, "100%");
        row("percent before non-directive", "%d at 50% • done", { 1 }, "1 at 50% • done");
        row("incomplete precision", "%.", { 1 }, "%.");

        // Arguments of the wrong type are rendered, not trusted.
        row("string into %d", "[%d]", { "seven" }, "[seven]");
        row("string into %.1f", "%.1f", { "n/a" }, "n/a");
        row("huge real into %d", "%d", { 1e300 }, "0");
        row("nan into %d", "%d", { std::numeric_limits<double>::quiet_NaN() }, "0");
        row("invalid code point", "%c", { 0xD800 }, "\uFFFD");
        row("extra arguments ignored", "%d", { 1, 2, 3 }, "1");
    }
    void formatsDirectivesAndSurvivesMissingOrWrongArguments()
    {
        QFETCH(QString, format);
        QFETCH(FormatArgs, args);
        QFETCH(QString, expected);
        QCOMPARE(formatPrintf(format, args), expected);
    }
    void hostileFormatsNeverCrashOrExplode()
    {
        // Widths and precisions are capped, so these stay small.
        QVERIFY(formatPrintf(QStringLiteral("%999999999d"), { 1 }).size() <= 1024);
        QVERIFY(formatPrintf(QStringLiteral("%.999999999f"), { 1.0 }).size() <= 100);
        QVERIFY(
            formatPrintf(QStringLiteral("%*d"), { std::numeric_limits<qint64>::min(), 1 }).size()
            <= 1024);
        QVERIFY(formatPrintf(QStringLiteral("%99999999999999999999$d"), { 1 }).size() < 40);

        // Every prefix of a directive-dense text formats without failing.
        const QString dense = QStringLiteral("%1$-+ 0#'*.*lld%%%@%.%5$%c%");
        for (qsizetype n = 0; n <= dense.size(); ++n)
            formatPrintf(dense.left(n), { 1, 2.5, "x", -3 });

        // A pseudo-random soup of directive characters.
        const QString alphabet = QStringLiteral("%%%-+ 0#'*.123$hlqLzjtdiufFeEgGxXocs@a");
        quint32 seed = 12345;
        for (int round = 0; round < 2000; ++round) {
            QString format;
            for (int i = 0; i < 24; ++i) {
                seed = seed * 1103515245u + 12345u;
                format += alphabet[qsizetype((seed >> 16) % quint32(alphabet.size()))];
            }
            const QString out = formatPrintf(format, { round, -0.5, "s" });
            QVERIFY2(out.size() < 4 * 1024 + format.size(), qPrintable(format));
        }
    }
    void listsDirectivesInOrder_data()
    {
        QTest::addColumn<QString>("format");
        QTest::addColumn<QStringList>("expected");
        QTest::newRow("none") << QStringLiteral("Ready") << QStringList {};
        QTest::newRow("escaped percent")
            << QStringLiteral("[%d / %d]  %d%%")
            << QStringList { QStringLiteral("%d"), QStringLiteral("%d"), QStringLiteral("%d") };
        QTest::newRow("mixed") << QStringLiteral("Completed [%d/%d] %@ (+%.2fst)")
                               << QStringList { QStringLiteral("%d"), QStringLiteral("%d"),
                                                QStringLiteral("%@"), QStringLiteral("%.2f") };
        QTest::newRow("accidental") << QStringLiteral("%d face(s) (40% skin damping)")
                                    << QStringList { QStringLiteral("%d"), QStringLiteral("% s") };
        QTest::newRow("not a directive") << QStringLiteral("100% • Space") << QStringList {};
    }
    void listsDirectivesInOrder()
    {
        QFETCH(QString, format);
        QFETCH(QStringList, expected);
        QCOMPARE(printfDirectives(format), expected);
    }
};

ORVANTA_TEST_GUILESS_MAIN(FormatArgsTest)
#include "tst_formatargs.moc"
