// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// A stand-in for the real engine, driven by a scenario file, so the tests
// can run the application's supervisor against a real child process: what
// it prints (with or without newlines, in pieces), pauses, rows written into
// a real pipeline_state.db, and how it reacts to SIGINT and SIGTERM.
//
// It reads the scenario named by ORVANTA_TEST_SCENARIO and, when
// ORVANTA_TEST_RECORD is set, appends there the command line and environment
// it received. One command per line:
//   print TEXT        TEXT and a newline          write TEXT   TEXT alone
//   stderr TEXT       TEXT and a newline on the error stream
//   pause MS          sleep (interrupted early by a stop request)
//   touch PATH        create PATH (tells the test a point was reached)
//   db STEM STATUS    insert a row into the state database
//   on-sigint exit130|ignore|die      on-sigterm ignore|die
//   wait-signal       block until a signal arrives
//   flood COUNT EVERY COUNT lines, every EVERY-th an event, alternating
//                     "item_start" and "item_done"
//   exit CODE         crash SIGNAL (raise it with the default action)
//   spawn-stubborn PATH  start a worker in our process group that ignores
//                     INT and TERM; its pid is written to PATH
//   endless           print one line without end (never a newline)
//   wait-file PATH    wait until PATH exists (a stop request ends the wait)
// TEXT understands \n, \t, \\ and \xHH.
#include "db/ProcessedFiles.h"
#include "db/Sqlite.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fstream>
#include <sqlite3.h>
#include <sstream>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

extern char **environ;

namespace {

volatile sig_atomic_t g_interrupted = 0;
bool g_exitOnInterrupt = false;

void onInterrupt(int)
{
    g_interrupted = 1;
}

void writeAll(int fd, const std::string &text)
{
    size_t done = 0;
    while (done < text.size()) {
        const ssize_t n = ::write(fd, text.data() + done, text.size() - done);
        if (n <= 0)
            return;
        done += size_t(n);
    }
}

std::string unescape(const std::string &in)
{
    std::string out;
    for (size_t i = 0; i < in.size(); ++i) {
        if (in[i] != '\\' || i + 1 >= in.size()) {
            out += in[i];
            continue;
        }
        const char c = in[++i];
        if (c == 'n')
            out += '\n';
        else if (c == 't')
            out += '\t';
        else if (c == 'x' && i + 2 < in.size()) {
            out += char(std::stoi(in.substr(i + 1, 2), nullptr, 16));
            i += 2;
        } else
            out += c;
    }
    return out;
}

// An engine asked to stop finishes what it is doing and exits with 130.
void honourInterrupt()
{
    if (g_interrupted && g_exitOnInterrupt) {
        writeAll(1, "test engine: interrupted, finishing in-flight work\n");
        std::exit(130);
    }
}

void sleepMs(long ms)
{
    timespec ts { ms / 1000, (ms % 1000) * 1000000L };
    while (nanosleep(&ts, &ts) != 0) {
        honourInterrupt();
        if (g_interrupted && g_exitOnInterrupt)
            return;
    }
}

std::string dataHome()
{
    if (const char *xdg = std::getenv("XDG_DATA_HOME"); xdg && *xdg)
        return xdg;
    const char *home = std::getenv("HOME");
    return std::string(home ? home : "/tmp") + "/.local/share";
}

void insertRow(const std::string &stem, const std::string &status)
{
    const std::string dir = dataHome() + "/Orvanta";
    ::mkdir(dataHome().c_str(), 0755);
    ::mkdir(dir.c_str(), 0755);
    const orvanta::db::Connection db = orvanta::db::open(
        (dir + "/pipeline_state.db").c_str(), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    if (!db || !orvanta::db::createProcessedFiles(db.get()))
        std::exit(90);
    const orvanta::db::Statement st
        = orvanta::db::prepare(db.get(),
                               "INSERT OR REPLACE INTO processed_files (fingerprint, stem, status, "
                               "processed_at, peak_stops, num_faces) VALUES (?, ?, ?, "
                               "'2026-01-01T00:00:00', 2.5, 1)");
    if (!st)
        std::exit(91);
    const std::string fingerprint = "fp-" + stem;
    sqlite3_bind_text(st.get(), 1, fingerprint.c_str(), -1, SQLITE_TRANSIENT);
    sqlite3_bind_text(st.get(), 2, stem.c_str(), -1, SQLITE_TRANSIENT);
    sqlite3_bind_text(st.get(), 3, status.c_str(), -1, SQLITE_TRANSIENT);
    if (sqlite3_step(st.get()) != SQLITE_DONE)
        std::exit(91);
}

void flood(long count, long every)
{
    // Buffered: this is the fast path the benchmark measures.
    static char buffer[1 << 16];
    std::setvbuf(stdout, buffer, _IOFBF, sizeof buffer);
    bool start = true;
    long index = 0;
    for (long i = 1; i <= count; ++i) {
        if (every > 0 && i % every == 0) {
            if (start)
                std::printf("ORVANTA_EVENT: {\"type\":\"item_start\",\"stem\":\"IMG_%ld\","
                            "\"index\":%ld,\"total\":%ld}\n",
                            index + 1, index + 1, count / every);
            else {
                ++index;
                std::printf("ORVANTA_EVENT: {\"type\":\"item_done\",\"stem\":\"IMG_%ld\","
                            "\"index\":%ld,\"total\":%ld,\"peak_stops\":2.5,\"duration\":0.1}\n",
                            index, index, count / every);
            }
            start = !start;
        } else {
            std::printf("[worker-%ld] line %ld\n", i % 8, i);
        }
    }
    std::fflush(stdout);
}

void spawnStubborn(const std::string &pidPath)
{
    const pid_t child = ::fork();
    if (child == 0) {
        std::signal(SIGINT, SIG_IGN);
        std::signal(SIGTERM, SIG_IGN);
        // Not holding the output pipe, like a worker that writes elsewhere.
        ::close(1);
        ::close(2);
        for (;;)
            ::pause();
    }
    const std::string tmp = pidPath + ".tmp";
    std::ofstream(tmp) << child << '\n';
    std::rename(tmp.c_str(), pidPath.c_str());
}

void record(int argc, char **argv)
{
    const char *path = std::getenv("ORVANTA_TEST_RECORD");
    if (!path)
        return;
    std::ofstream out(path, std::ios::app); // one block per start, each opening with its pid
    out << "pid\t" << ::getpid() << "\npgid\t" << ::getpgid(0) << '\n';
    for (int i = 1; i < argc; ++i)
        out << "arg\t" << argv[i] << '\n';
    for (char **e = environ; *e; ++e)
        out << "env\t" << *e << '\n';
}

} // namespace

int main(int argc, char **argv)
{
    record(argc, argv);
    const char *scenarioPath = std::getenv("ORVANTA_TEST_SCENARIO");
    if (!scenarioPath)
        return 0;
    std::ifstream scenario(scenarioPath);
    std::string line;
    while (std::getline(scenario, line)) {
        honourInterrupt();
        const size_t space = line.find(' ');
        const std::string command = line.substr(0, space);
        const std::string rest
            = space == std::string::npos ? std::string() : line.substr(space + 1);
        if (command == "print") {
            writeAll(1, unescape(rest) + "\n");
        } else if (command == "write") {
            writeAll(1, unescape(rest));
        } else if (command == "stderr") {
            writeAll(2, unescape(rest) + "\n");
        } else if (command == "pause") {
            sleepMs(std::stol(rest));
        } else if (command == "touch") {
            std::ofstream(rest).put('\n');
        } else if (command == "db") {
            std::istringstream words(rest);
            std::string stem, status;
            words >> stem >> status;
            insertRow(stem, status);
        } else if (command == "on-sigint") {
            g_exitOnInterrupt = rest == "exit130";
            std::signal(SIGINT, rest == "ignore" ? SIG_IGN : rest == "die" ? SIG_DFL : onInterrupt);
        } else if (command == "on-sigterm") {
            std::signal(SIGTERM, rest == "ignore" ? SIG_IGN : SIG_DFL);
        } else if (command == "wait-signal") {
            for (;;) {
                ::pause();
                honourInterrupt();
            }
        } else if (command == "flood") {
            std::istringstream words(rest);
            long count = 0, every = 0;
            words >> count >> every;
            flood(count, every);
        } else if (command == "spawn-stubborn") {
            spawnStubborn(rest);
        } else if (command == "wait-file") {
            struct stat info
            {
            };
            while (::stat(rest.c_str(), &info) != 0) {
                sleepMs(20);
                honourInterrupt();
            }
        } else if (command == "endless") {
            const std::string chunk(65536, 'x');
            for (;;)
                if (::write(1, chunk.data(), chunk.size()) <= 0)
                    return 0;
        } else if (command == "exit") {
            return std::stoi(rest);
        } else if (command == "crash") {
            std::signal(std::stoi(rest), SIG_DFL);
            std::raise(std::stoi(rest));
        }
    }
    return 0;
}
