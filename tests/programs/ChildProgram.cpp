// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/programs/ChildProgram.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>

#include "core/ColumnLine.h"
#include "core/Text.h"

namespace Dorvane::Testing {

ChildEnd RunChild(const TestSite& site, const std::string& program) {
    int pipe[2];
    if (::pipe(pipe) != 0)
        return {};
    const std::string path = DORVANE_PROGRAMS_FOLDER + program;
    const pid_t child = fork();
    if (child == 0) {
        setenv("DORVANE_DRIVES", site.HostFolder().c_str(), 1);
        dup2(pipe[1], STDERR_FILENO);
        close(pipe[0]);
        close(pipe[1]);
        execl(path.c_str(), path.c_str(), static_cast<char*>(nullptr));
        _exit(127);
    }
    close(pipe[1]);
    ChildEnd end;
    char buffer[4096];
    for (ssize_t count = read(pipe[0], buffer, sizeof buffer); count > 0;
         count = read(pipe[0], buffer, sizeof buffer))
        end.Errors.append(buffer, static_cast<std::size_t>(count));
    close(pipe[0]);
    int status = 0;
    waitpid(child, &status, 0);
    end.ExitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return end;
}

ReductionSite::ReductionSite(const std::string& type)
    : Folder("D:\\TARVEX\\DAM\\NORTH\\" + type + "\\SRV01\\") {
    Site.LayOut();
    PutLines("C:\\WINDOWS\\dv_tarvex.ini", {"[Tarvex Info]", "Param_path=C:\\TARVEX\\PARAM\\"});
    Index = {"\\TARVEX\\DAM\\NORTH\\" + type + "\\SRV01", " "};
    PutLines(Folder + "SRV01.IDX", Index);
}

void ReductionSite::AddFile(const std::string& name, const std::string& content) {
    PutFile(Folder + name, content);
    const std::string base = BeforeFirstPoint(name);
    Index.push_back(
        ColumnLine().At(1, base).At(10, BehindFirstPoint(name)).At(20, base).At(40, "11/20/2026").Text());
    PutLines(Folder + "SRV01.IDX", Index);
}

void ReductionSite::PutParameters(const std::string& name, const std::vector<std::string>& files) {
    std::vector<std::string> lines = {Folder, Folder + "SRV01.IDX"};
    for (const std::string& file : files)
        lines.push_back(file.find(':') == std::string::npos ? Folder + file : file);
    PutLines("C:\\TARVEX\\PARAM\\" + name, lines);
}

}  // namespace Dorvane::Testing
