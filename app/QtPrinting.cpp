// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/QtPrinting.h"

#include <QDir>
#include <QFontMetricsF>
#include <QLibrary>
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QStorageInfo>
#include <vector>

#include "core/RunTimeError.h"
#include "core/widgets/ScreenText.h"

namespace Dorvane {

namespace {

constexpr int TabWidth = 8;

// Fonts and page descriptions, whatever the text.
constexpr qint64 SpoolOverhead = 2 << 20;
constexpr qint64 SpoolBytesPerCharacter = 16;

bool IsThere(const QPrinter& printer) {
    return QPrinterInfo::availablePrinterNames().contains(printer.printerName());
}

std::unique_ptr<QPrinter> OpenPrinter(const QPrinterInfo& info) {
    auto printer = std::make_unique<QPrinter>(info, QPrinter::HighResolution);
    printer->setDocName(QStringLiteral("Dorvane"));
    return printer;
}

// The print system's word on the last document. The toolkit drops it, so it is asked for where that system
// is.
void CheckAccepted() {
    constexpr int FirstFailure = 0x100;
    using LastError = int (*)();
    using LastErrorText = const char* (*)();
    QLibrary library(QStringLiteral("cups"), 2);
    const auto lastError = reinterpret_cast<LastError>(library.resolve("cupsLastError"));
    const auto lastErrorText = reinterpret_cast<LastErrorText>(library.resolve("cupsLastErrorString"));
    if (lastError != nullptr && lastErrorText != nullptr && lastError() >= FirstFailure)
        throw RunTimeError(DeviceIoError, FromScreen(QString::fromUtf8(lastErrorText())));
}

// One line as the printer shows it: tabs lead to the next column of eight, other control characters are
// blanks.
QString Printed(const std::string& text, int mostColumns) {
    QString line;
    for (const QChar c : ToScreen(text)) {
        if (line.size() >= mostColumns)
            break;
        if (c == QLatin1Char('\t'))
            line.resize((line.size() / TabWidth + 1) * TabWidth, QLatin1Char(' '));
        else
            line += c < QLatin1Char(' ') ? QLatin1Char(' ') : c;
    }
    return line;
}

class TextJob : public PrintJob {
  public:
    TextJob(QPrinter& printer, const std::string& font, int points)
        : Printer(printer), Font(ToScreen(font), points) {
        Font.setStyleHint(QFont::TypeWriter);
        Font.setFixedPitch(true);
    }

    void Line(const std::string& text) override { Lines.push_back(text); }

    void End() override {
        if (!IsThere(Printer))
            throw RunTimeError(DeviceUnavailable, FromScreen(Printer.printerName()));
        CheckRoom();
        Draw();
        CheckAccepted();
    }

  private:
    void CheckRoom() const {
        qint64 needed = SpoolOverhead;
        for (const std::string& line : Lines)
            needed += SpoolBytesPerCharacter * static_cast<qint64>(line.size());
        const QStorageInfo spool(QDir::tempPath());
        if (spool.isValid() && spool.bytesAvailable() < needed)
            throw RunTimeError(DiskFull, FromScreen(QDir::tempPath()));
    }

    void Draw() {
        QPainter painter;
        if (!painter.begin(&Printer))
            throw RunTimeError(DeviceIoError, FromScreen(Printer.printerName()));
        painter.setFont(Font);
        const QFontMetricsF metrics(Font, &Printer);
        const QRectF page = Printer.pageRect(QPrinter::DevicePixel);
        const int columns = static_cast<int>(page.width() / metrics.horizontalAdvance(QLatin1Char('M'))) + 1;
        double top = 0;
        for (const std::string& line : Lines) {
            if (top > 0 && top + metrics.height() > page.height()) {
                if (!Printer.newPage())
                    throw RunTimeError(DeviceIoError, FromScreen(Printer.printerName()));
                top = 0;
            }
            painter.drawText(QPointF(0, top + metrics.ascent()), Printed(line, columns));
            top += metrics.lineSpacing();
        }
        if (!painter.end() || Printer.printerState() == QPrinter::Error)
            throw RunTimeError(DeviceIoError, FromScreen(Printer.printerName()));
    }

    QPrinter& Printer;
    QFont Font;
    std::vector<std::string> Lines;
};

}  // namespace

std::unique_ptr<QPrinter> OpenDefaultPrinter() {
    QPrinterInfo info = QPrinterInfo::defaultPrinter();
    if (info.isNull()) {
        const QStringList names = QPrinterInfo::availablePrinterNames();
        if (names.isEmpty())
            throw RunTimeError(DeviceUnavailable);
        info = QPrinterInfo::printerInfo(names.first());
    }
    return OpenPrinter(info);
}

std::unique_ptr<QPrinter> OpenPrinterLike(const QPrinter& printer) {
    std::unique_ptr<QPrinter> other = OpenPrinter(QPrinterInfo(printer));
    other->setPageLayout(printer.pageLayout());
    other->setCopyCount(printer.copyCount());
    other->setDuplex(printer.duplex());
    other->setColorMode(printer.colorMode());
    return other;
}

std::unique_ptr<PrintJob> NewPrintJob(QPrinter& printer, const std::string& font, int points) {
    return std::make_unique<TextJob>(printer, font, points);
}

}  // namespace Dorvane
