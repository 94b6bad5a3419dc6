// SPDX-License-Identifier: GPL-3.0-or-later
#include "adjustment/PackageChannel.h"

#include <charconv>
#include <string_view>

#include <fmt/format.h>

namespace Dorvane {

namespace {

std::string Encoded(const std::string& word) {
    std::string text;
    for (const char c : word) {
        const auto code = static_cast<unsigned char>(c);
        if (code <= ' ' || c == '%')
            text += fmt::format("%{:02X}", code);
        else
            text += c;
    }
    return text;
}

std::string Decoded(std::string_view text) {
    std::string word;
    for (std::size_t i = 0; i < text.size(); ++i) {
        int code = 0;
        if (text[i] == '%' && i + 2 < text.size() &&
            std::from_chars(text.data() + i + 1, text.data() + i + 3, code, 16).ec == std::errc()) {
            word += static_cast<char>(code);
            i += 2;
        } else {
            word += text[i];
        }
    }
    return word;
}

PackageChannel::Words WordsOf(std::string_view line) {
    PackageChannel::Words words;
    for (;;) {
        const std::size_t end = line.find(' ');
        words.push_back(Decoded(line.substr(0, end)));
        if (end == std::string_view::npos)
            return words;
        line.remove_prefix(end + 1);
    }
}

}  // namespace

bool PackageChannel::Send(const Words& words) {
    std::string line;
    for (const std::string& word : words)
        line += Encoded(word) + ' ';
    line.back() = '\n';
    return Host::Send(Line, line);
}

Host::Arrival PackageChannel::Receive(int milliseconds, Words& words) {
    std::size_t end = Received.find('\n');
    while (end == std::string::npos) {
        const Host::Arrival arrival = Host::Receive(Line, milliseconds, Received);
        if (arrival != Host::Arrival::Text)
            return arrival;
        end = Received.find('\n');
    }
    words = WordsOf(std::string_view(Received).substr(0, end));
    Received.erase(0, end + 1);
    return Host::Arrival::Text;
}

std::optional<int> NumberOfWord(const std::string& word) {
    int number = 0;
    const char* const end = word.data() + word.size();
    const auto [behind, failure] = std::from_chars(word.data(), end, number);
    if (failure != std::errc() || behind != end)
        return std::nullopt;
    return number;
}

}  // namespace Dorvane
