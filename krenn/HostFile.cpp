// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/HostFile.h"

#include <filesystem>
#include <fstream>
#include <memory>
#include <system_error>

#include "krenn/Errors.h"
#include "krenn/Scan.h"

namespace Krenn {
namespace {

namespace fs = std::filesystem;

struct Closer {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

[[noreturn]] void RefuseListing(const fs::path& path, const fs::path& beside) {
    std::error_code ignored;
    fs::remove(beside, ignored);
    throw Failure(ErrorNumber::ListingNotWritten, "The listing " + path.string() + " cannot be written.");
}

}  // namespace

std::string ReadWholeFile(const std::string& path) {
    std::error_code error;
    if (!fs::is_regular_file(path, error) || error)
        throw Failure(ErrorNumber::InputNotReadable, "There is no file of this name.",
                      {Printable(path, 500)});
    std::ifstream file(path, std::ios::binary);
    const auto size = fs::file_size(path, error);
    if (!file || error)
        throw Failure(ErrorNumber::InputNotReadable, "The file cannot be opened.", {Printable(path, 500)});
    std::string text(static_cast<std::size_t>(size), '\0');
    file.read(text.data(), static_cast<std::streamsize>(text.size()));
    if (file.gcount() != static_cast<std::streamsize>(text.size()))
        throw Failure(ErrorNumber::InputNotReadable, "The file cannot be read to its end.",
                      {Printable(path, 500)});
    return text;
}

std::optional<std::string> FileBeside(const std::string& inputPath, const std::string& name) {
    const fs::path input(inputPath);
    fs::path exact = input;
    exact.replace_filename(name);
    const fs::path folder = input.has_parent_path() ? input.parent_path() : fs::path(".");
    std::error_code error;
    if (fs::exists(exact, error))
        return exact.string();
    std::optional<std::string> found;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        const fs::path file = entry->path().filename();
        if (!SameText(file.string(), name) || file == input.filename())
            continue;
        const std::string path = (input.has_parent_path() ? entry->path() : file).string();
        // Of several the same one whatever order the folder gives.
        if (!found || path < *found)
            found = path;
    }
    return found;
}

std::string ListingPath(const std::string& inputPath) {
    const fs::path input(inputPath);
    fs::path listing = input;
    listing.replace_filename(input.stem().string() + ".OUT");
    return FileBeside(inputPath, listing.filename().string()).value_or(listing.string());
}

void WriteWholeFile(const std::string& path, std::string_view text) {
    const fs::path beside(path + ".new");
    {
        const std::unique_ptr<std::FILE, Closer> file(std::fopen(beside.string().c_str(), "wb"));
        if (!file)
            throw Failure(ErrorNumber::ListingNotWritten, "The listing " + path + " cannot be written.");
        const bool isWritten = std::fwrite(text.data(), 1, text.size(), file.get()) == text.size() &&
                               std::fflush(file.get()) == 0 && FlushToDisk(file.get());
        if (!isWritten)
            RefuseListing(path, beside);
    }
    std::error_code error;
    fs::rename(beside, path, error);
    if (error)
        RefuseListing(path, beside);
}

}  // namespace Krenn
