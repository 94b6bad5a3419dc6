// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/app/PrintServer.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QProcess>
#include <QTest>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace Dorvane::Testing {

namespace {

namespace fs = std::filesystem;

constexpr int Patience = 120000;  // milliseconds, for a machine under load
const char* const Printer = "/usr/share/ppd/cupsfilters/Generic-PDF_Printer-PDF.ppd";

std::string Socket() {
    return (fs::temp_directory_path() / ("dorvane-cups-" + std::to_string(getpid()))).string();
}

QByteArray Run(const QString& program, const QStringList& arguments, int* result = nullptr) {
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForStarted())
        throw std::runtime_error("cannot start " + program.toStdString());
    if (!process.waitForFinished(Patience))
        throw std::runtime_error("does not end: " + program.toStdString());
    if (result != nullptr)
        *result = process.exitCode();
    else if (process.exitCode() != 0)
        throw std::runtime_error(program.toStdString() + ": " + process.readAllStandardError().toStdString());
    return process.readAllStandardOutput();
}

std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::string line;
    for (const char c : text) {
        if (c == '\n')
            lines.push_back(std::exchange(line, ""));
        else
            line += c;
    }
    return lines;
}

}  // namespace

void ForgetPrintServer() {
    qputenv("CUPS_SERVER", Socket().c_str());
}

PrintServer::PrintServer() {
    std::string name = (fs::temp_directory_path() / "dorvane-print-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr)
        throw std::runtime_error("no temporary folder");
    Folder = name + "/";
    fs::permissions(Folder, fs::perms(0755));
    WriteConfiguration();
    Start();
}

PrintServer::~PrintServer() {
    if (Scheduler > 0) {
        kill(Scheduler, SIGTERM);
        waitpid(Scheduler, nullptr, 0);
    }
    std::error_code ignored;
    fs::remove_all(Folder, ignored);
    fs::remove(Socket(), ignored);
}

void PrintServer::WriteConfiguration() const {
    for (const char* folder : {"etc/ppd", "etc/ssl", "cache", "state", "spool/tmp", "pdf", "log", "programs"})
        fs::create_directories(Folder + folder);
    // A copy runs by the test's rules and not by those that a machine may lay upon the installed server.
    fs::copy_file("/usr/sbin/cupsd", Folder + "programs/cupsd");

    std::ofstream(Folder + "etc/cups-files.conf")
        << "ServerRoot " << Folder
        << "etc\nServerBin /usr/lib/cups\nFileDevice Yes\nDataDir /usr/share/cups\nCacheDir " << Folder
        << "cache\nStateDir " << Folder << "state\nRequestRoot " << Folder << "spool\nTempDir " << Folder
        << "spool/tmp\nAccessLog " << Folder << "log/access\nErrorLog " << Folder << "log/error\nPageLog "
        << Folder << "log/page\nUser lp\nGroup lp\nSystemGroup root\n"
        << "Sandboxing relaxed\n";
    std::ofstream(Folder + "etc/cupsd.conf")
        << "LogLevel info\nListen " << Socket() << "\nBrowsing Off\nDefaultAuthType None\nWebInterface No\n"
        << "<Location />\nOrder allow,deny\nAllow all\n</Location>\n"
        << "<Location /admin>\nOrder allow,deny\nAllow all\n</Location>\n"
        << "<Policy default>\n<Limit All>\nOrder deny,allow\n</Limit>\n</Policy>\n";
}

void PrintServer::Start() {
    const std::string configuration = Folder + "etc/cupsd.conf";
    const std::string files = Folder + "etc/cups-files.conf";
    const std::string scheduler = Folder + "programs/cupsd";
    const std::string log = Folder + "log/scheduler";
    Scheduler = fork();
    if (Scheduler == 0) {
        const int output = open(log.c_str(), O_WRONLY | O_CREAT, 0600);
        dup2(output, 1);
        dup2(output, 2);
        execl(scheduler.c_str(), "cupsd", "-f", "-c", configuration.c_str(), "-s", files.c_str(), nullptr);
        _exit(127);
    }
    ForgetPrintServer();
    const auto answers = [] {
        int result = 0;
        return Run(QStringLiteral("lpstat"), {QStringLiteral("-r")}, &result).contains("is running");
    };
    if (!QTest::qWaitFor(answers, Patience))
        throw std::runtime_error("the print server does not start; tests of it need root");
}

void PrintServer::AddQueue(const std::string& name) {
    Run(QStringLiteral("lpadmin"),
        {"-p", QString::fromStdString(name), "-E", "-v", QString::fromStdString("file://" + Output(name)),
         "-P", Printer, "-o", "PageSize=A4"});
}

void PrintServer::MakeDefault(const std::string& name) {
    Run(QStringLiteral("lpadmin"), {"-d", QString::fromStdString(name)});
}

void PrintServer::RemoveQueue(const std::string& name) {
    Run(QStringLiteral("lpadmin"), {"-x", QString::fromStdString(name)});
}

void PrintServer::Reject(const std::string& name) {
    Run(QStringLiteral("cupsreject"), {QString::fromStdString(name)});
}

std::string PrintServer::Output(const std::string& queue) const {
    return Folder + "pdf/" + queue + ".pdf";
}

std::size_t PrintServer::Documents(const char* state) const {
    const QByteArray list =
        Run(QStringLiteral("lpstat"), {QStringLiteral("-W"), QLatin1String(state), QStringLiteral("-o")});
    return static_cast<std::size_t>(list.count('\n'));
}

bool PrintServer::IsIdle() const {
    return QTest::qWaitFor([&] { return Documents("not-completed") == 0; }, Patience);
}

std::vector<std::vector<std::string>> PrintServer::PrintedPages(const std::string& queue) const {
    EXPECT_TRUE(IsIdle());
    EXPECT_EQ(Documents("completed"), 1U);
    if (!fs::exists(Output(queue))) {
        ADD_FAILURE() << "nothing was printed on " << queue;
        return {};
    }
    const QByteArray text = Run(QStringLiteral("pdftotext"), {"-layout", "-fixed", "7.2", "-enc", "UTF-8",
                                                              QString::fromStdString(Output(queue)), "-"});
    std::vector<std::vector<std::string>> pages;
    for (const QByteArray& page : text.split('\f'))
        if (!page.isEmpty())
            pages.push_back(LinesOf(page.toStdString()));
    return pages;
}

bool PrintServer::NothingPrinted() const {
    return IsIdle() && Documents("completed") == 0 && fs::is_empty(Folder + "pdf");
}

}  // namespace Dorvane::Testing
