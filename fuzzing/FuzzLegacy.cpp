// Any bytes go through the reader of the legacy format. When they are a text, so does the same text in
// UTF-16, of which the parser gets every character: what is found must be the same.

#include "fuzzing/FuzzInput.h"
#include "fuzzing/Reading.h"

#include "format_legacy/CTemplateXMLReader.h"
#include "loading/TemplateFile_p.h"

#include <QTextCodec>

using namespace Tobrix;

namespace {

Fuzzing::Reading readingOf(const QByteArray &file)
{
    Templates::CTemplateXMLReader reader;
    const auto *bytes = reinterpret_cast<const std::uint8_t *>(file.constData());
    return Fuzzing::readingOf(reader, Fuzzing::fileOf(bytes, static_cast<std::size_t>(file.size())), false);
}

bool isWithinLimits(const QByteArray &file)
{
    Templates::TemplateFile opened;
    const auto *bytes = reinterpret_cast<const std::uint8_t *>(file.constData());
    opened.openTemplate(Fuzzing::fileOf(bytes, static_cast<std::size_t>(file.size())));
    opened.readAll();
    return opened.excess().isEmpty();
}

/// The text of a file that is in UTF-8 and says no more of its encoding than that; null for any other.
QString textOf(const QByteArray &file)
{
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    const QString text = QTextCodec::codecForName("UTF-8")->toUnicode(file.constData(), file.size(), &state);
    const bool isWhole = state.invalidChars == 0 && state.remainingChars == 0;
    // These say of the bytes behind them how to read them.
    const bool isMarked = text.startsWith(QChar::ByteOrderMark) || text.startsWith(QChar::Null) ||
                          text.contains(QLatin1String("encoding"));
    return isWhole && !isMarked ? text : QString();
}

QByteArray utf16FileOf(const QString &text)
{
    const QString marked = QChar(QChar::ByteOrderMark) + text;
    return QByteArray(reinterpret_cast<const char *>(marked.utf16()), marked.size() * 2);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size)
{
    QByteArray file(reinterpret_cast<const char *>(bytes), static_cast<int>(size));
    readingOf(file);

    file.replace(" encoding=\"UTF-8\"", "");
    const QString text = textOf(file);
    const QByteArray utf16File = utf16FileOf(text);
    // Where in a file something is too much, and so what is found before that, is another place in the two.
    if (!text.isEmpty() && isWithinLimits(file) && isWithinLimits(utf16File)) {
        Fuzzing::requireSame("in UTF-8:", readingOf(file), "in UTF-16:", readingOf(utf16File));
    }
    return 0;
}
