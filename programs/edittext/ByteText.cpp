// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/edittext/ByteText.h"

#include <array>

#include "core/widgets/ScreenText.h"

namespace Dorvane {

namespace {

constexpr QChar ControlPictures(0x2400);
constexpr QChar DeletePicture(0x2421);
constexpr QChar TabPicture(0x2192);
constexpr QChar SoftHyphenPicture(0x2010);
constexpr QChar Undefined(0x25AF);

QChar Shown(unsigned char byte) {
    if (byte == '\t')
        return TabPicture;
    if (byte < 0x20)
        return QChar(ControlPictures.unicode() + byte);
    if (byte == 0x7F)
        return DeletePicture;
    if (byte == 0xAD)
        return SoftHyphenPicture;
    const QChar c = ToScreen(std::string(1, static_cast<char>(byte))).at(0);
    return c.unicode() >= 0x80 && c.unicode() < 0xA0 ? Undefined : c;
}

const std::array<QChar, 256>& ShownBytes() {
    static const std::array<QChar, 256> table = [] {
        std::array<QChar, 256> made;
        for (std::size_t byte = 0; byte < made.size(); ++byte)
            made[byte] = Shown(static_cast<unsigned char>(byte));
        return made;
    }();
    return table;
}

}  // namespace

QChar ShownByte(unsigned char byte) {
    return ShownBytes()[byte];
}

bool IsStandIn(unsigned char byte) {
    const ushort shown = ShownByte(byte).unicode();
    return shown != byte && (byte < 0x80 || byte == 0xAD || shown == Undefined.unicode());
}

QString TextForOthers(const std::string& bytes) {
    QString text = ToScreen(bytes);
    text.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return text.replace(QChar(0), ControlPictures);
}

std::optional<std::string> BytesOf(const QString& text, QString& lacking) {
    for (qsizetype i = 0; i < text.size(); ++i) {
        const qsizetype length = text.at(i).isHighSurrogate() ? 2 : 1;
        const QString character = text.mid(i, length);
        if (ToScreen(FromScreen(character)) == character)
            continue;
        lacking = character;
        return std::nullopt;
    }
    return FromScreen(text);
}

}  // namespace Dorvane
