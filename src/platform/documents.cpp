// SPDX-License-Identifier: MIT
#include "platform/documents.h"

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QStringDecoder>
#include <QStringList>
#include <filesystem>
#include <system_error>

#include "app/text.h"

namespace quillon {

namespace {

// The converter's name for code page 932 with its vendor's additions. Plain Shift_JIS lacks them in
// some builds, and maps the wave dash to another character.
constexpr const char* kCodePage = "windows-31j";
// The converter writes this character for a byte that doesn't convert. It also occurs as itself,
// the end mark of old text files, so decode_text() takes the mark out first.
constexpr char16_t kSubstitute = 0x1A;

QString decode_piece(std::string_view bytes) {
    QStringDecoder decoder{kCodePage};
    if (!decoder.isValid()) decoder = QStringDecoder{QStringConverter::System};
    // The decoder would wait for the rest of a character that is cut off at the end. The added line
    // end makes it treat the character as invalid.
    QString text = decoder(QByteArray{bytes.data(), static_cast<qsizetype>(bytes.size())} + '\n');
    text.chop(1);
    return text.replace(QChar{kSubstitute}, QChar{QChar::ReplacementCharacter});
}

bool is_url(const std::string& text) { return text.find("://") != std::string::npos; }

}  // namespace

std::string decode_text(std::string_view bytes) {
    if (is_utf8(bytes)) return std::string{bytes};
    QString text;
    for (;;) {
        const auto mark = bytes.find(static_cast<char>(kSubstitute));
        text += decode_piece(bytes.substr(0, mark));
        if (mark == std::string_view::npos) return text.toStdString();
        text += QChar{kSubstitute};
        bytes.remove_prefix(mark + 1);
    }
}

bool start_default(const std::string& path_or_url) {
    std::error_code error;
    std::string target = path_or_url;
    if (!is_url(target)) {
        if (!std::filesystem::exists(target, error)) return false;
        target = std::filesystem::absolute(target, error).string();
    }
    const QString name = QString::fromStdString(target);
#if defined(Q_OS_WIN)
    return QProcess::startDetached("rundll32", {"url.dll,FileProtocolHandler", name});
#elif defined(Q_OS_MACOS)
    return QProcess::startDetached("open", {name});
#else
    return QProcess::startDetached("xdg-open", {name});
#endif
}

}  // namespace quillon
