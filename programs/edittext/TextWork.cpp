// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/edittext/TextWork.h"

#include <QElapsedTimer>

namespace Dorvane {

namespace {

constexpr int PortionTime = 12;  // milliseconds between two looks at the operator's events
constexpr int PauseOfTyping = 700;
constexpr int PiecesAtOnce = 8;

}  // namespace

TextWork::TextWork(QObject* parent) : QObject(parent) {
    connect(&Next, &QTimer::timeout, this, &TextWork::GoOn);
    Next.setInterval(0);
    Later.setSingleShot(true);
    Later.setInterval(PauseOfTyping);
    connect(&Later, &QTimer::timeout, this, [this] {
        Scan = std::make_unique<SectionScan>(Document->Text());
        Next.start();
    });
}

void TextWork::Begin(TextDocument& document) {
    LeaveOff();
    Later.stop();
    Document = &document;
    Found.clear();
    emit SectionsFound();
    Scan = std::make_unique<SectionScan>(document.Text());
    Next.start();
    GoOn();
}

void TextWork::TextChanged() {
    LeaveOff();
    Scan.reset();
    Later.start();
}

void TextWork::Find(const SearchWords& words, Offset from, TextSearch::Direction direction, bool wrapAround,
                    std::function<void(std::optional<Offset>, bool)> found) {
    auto search = std::make_shared<TextSearch>(Document->Text(), words, from, direction, wrapAround);
    Start([this, search, found = std::move(found)] {
        const bool over = search->Step();
        emit Progress(over ? 1 : search->Share());
        if (over)
            found(search->Found(), search->HasWrapped());
        return over;
    });
}

void TextWork::FindAll(const SearchWords& words, std::function<void(const std::vector<Offset>&)> found) {
    auto matches = std::make_shared<TextMatches>(Document->Text(), words);
    Start([this, matches, found = std::move(found)] {
        const bool over = matches->Step();
        emit Progress(over ? 1 : matches->Share());
        if (over)
            found(matches->Places());
        return over;
    });
}

void TextWork::Start(std::function<bool()> seek) {
    LeaveOff();
    Seek = std::move(seek);
    Next.start();
    GoOn();
}

void TextWork::LeaveOff() {
    if (!Seek)
        return;
    Seek = nullptr;
    emit Progress(1);
}

// True when there is nothing left to do.
bool TextWork::Portion() {
    if (Seek) {
        // What is found may begin another search, so this one is put aside before.
        const std::function<bool()> seek = std::move(Seek);
        Seek = nullptr;
        if (!seek() && !Seek)
            Seek = seek;
        return false;
    }
    if (!Document->Text().AllCounted()) {
        Document->CountSome(PiecesAtOnce);
        return false;
    }
    if (Scan && Scan->Step()) {
        Found = Scan->Sections();
        Scan.reset();
        emit SectionsFound();
    }
    return Scan == nullptr;
}

void TextWork::GoOn() {
    const bool counted = Document->Text().AllCounted();
    QElapsedTimer time;
    time.start();
    bool over = false;
    while (!over && time.elapsed() < PortionTime)
        over = Portion();
    if (!counted) {
        const PieceText& text = Document->Text();
        emit LinesCounted();
        if (!Seek)
            emit Progress(text.AllCounted()
                              ? 1
                              : static_cast<double>(text.CountedBytes()) / static_cast<double>(text.Size()));
    }
    if (over)
        Next.stop();
}

}  // namespace Dorvane
