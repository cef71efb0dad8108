#include "Attacks.h"

#include <QTextCodec>

namespace {

QByteArray encoded(const QByteArray &text, const char *encoding)
{
    QTextCodec::ConverterState withoutMark(QTextCodec::IgnoreHeader);
    const QString characters = QString::fromUtf8(text);
    const QTextCodec *const codec = QTextCodec::codecForName(encoding);
    return codec ? codec->fromUnicode(characters.constData(), characters.size(), &withoutMark) : QByteArray();
}

/// A text with all markup characters encoded in UTF-7's base64.
QByteArray hiddenInUtf7(const QByteArray &text)
{
    QByteArray hidden = text;
    return hidden.replace('<', "+ADw-").replace('>', "+AD4-");
}

QByteArray declaration(const QByteArray &encoding)
{
    return "<?xml version=\"1.0\" encoding=\"" + encoding + "\"?>";
}

void addWide(Attacks &attacks)
{
    static const struct
    {
        const char *name;
        const char *encoding;
        QByteArray mark;
        const char *declared; ///< null without declaration
        bool isUnderstood;
    } kinds[] = {
        {"UTF-8", "UTF-8", "\xef\xbb\xbf", nullptr, true},
        {"UTF-16LE", "UTF-16LE", "\xff\xfe", nullptr, true},
        {"UTF-16BE", "UTF-16BE", "\xfe\xff", nullptr, true},
        {"UTF-16LE without mark", "UTF-16LE", "", nullptr, true},
        {"UTF-16BE without mark", "UTF-16BE", "", nullptr, true},
        {"UTF-32LE", "UTF-32LE", QByteArray("\xff\xfe\0\0", 4), nullptr, true},
        {"UTF-32BE", "UTF-32BE", QByteArray("\0\0\xfe\xff", 4), nullptr, true},
        {"UTF-32LE without mark", "UTF-32LE", "", nullptr, true},
        {"UTF-32BE without mark", "UTF-32BE", "", nullptr, true},
        {"UTF-16LE that says so", "UTF-16LE", "\xff\xfe", "UTF-16", true},
        {"UTF-16BE that says so", "UTF-16BE", "\xfe\xff", "UTF-16", true},
        {"UTF-16LE without mark that says so", "UTF-16LE", "", "UTF-16LE", true},
        {"UTF-16BE without mark that says so", "UTF-16BE", "", "UTF-16BE", true},
        {"UTF-16LE that says UTF-8", "UTF-16LE", "\xff\xfe", "UTF-8", false},
        {"UTF-16BE without mark that says UTF-16LE", "UTF-16BE", "", "UTF-16LE", false},
        {"UTF-32LE that says ISO-8859-1", "UTF-32LE", QByteArray("\xff\xfe\0\0", 4), "ISO-8859-1", false},
        {"UTF-8 that says UTF-16", "UTF-8", "", "UTF-16", false},
        {"UTF-8 that says UTF-32", "UTF-8", "", "UTF-32", false},
        {"UTF-8 that says IBM037", "UTF-8", "", "IBM037", false},
        {"IBM037", "IBM037", "", "IBM037", false},
        {"ISO-8859-15", "ISO-8859-15", "", "ISO-8859-15", true},
        {"windows-1252", "windows-1252", "", "windows-1252", true},
        {"Shift_JIS", "Shift_JIS", "", "Shift_JIS", true},
        {"GB18030", "GB18030", "", "GB18030", true},
        {"ISO-2022-JP", "ISO-2022-JP", "", "ISO-2022-JP", true},
        {"UTF-7", "UTF-7", "", "UTF-7", true},
    };
    for (const auto &kind : kinds) {
        const QByteArray prolog = kind.declared ? declaration(kind.declared) : QByteArray();
        addForBoth(attacks, QByteArray("as deep as may be in ") + kind.name,
                   kind.isUnderstood ? Outcome::Read : Outcome::Refused, [=](Format format) {
                       return kind.mark +
                              encoded(document(format, nested("a", deepestBelowRoot), prolog), kind.encoding);
                   });
        addForBoth(attacks, QByteArray("one level too deep in ") + kind.name, Outcome::Refused,
                   [=](Format format) {
                       return kind.mark + encoded(document(format, nested("a", deepestBelowRoot + 1), prolog),
                                                  kind.encoding);
                   });
        addForBoth(
            attacks, QByteArray("20,000 levels in ") + kind.name, Outcome::Refused, [=](Format format) {
                return kind.mark + encoded(document(format, nested("a", 20'000), prolog), kind.encoding);
            });
    }
}

void addHidden(Attacks &attacks)
{
    static const struct
    {
        const char *name;
        QByteArray declaration;
    } declarations[] = {
        {"plainly", declaration("UTF-7")},
        {"in lower case", declaration("utf-7")},
        {"by another name", declaration("unicode-1-1-utf-7")},
        {"in a version", "<?xml version=\"encoding='UTF-7'\"?>"},
        {"in a version before another one", "<?xml version=\"1.0 encoding='UTF-7'\" encoding='UTF-8'?>"},
        {"with a space in its name", declaration("UTF 7")},
        {"with a comma in its name", declaration("UTF-7,version=1")},
        {"with a character by its number", declaration("UTF&#45;7")},
        {"twice", "<?xml version=\"1.0\" encoding='UTF-7' encoding='UTF-8'?>"},
        {"without a space before it", "<?xml version='1.0'encoding='UTF-7'?>"},
        {"without an equals sign", "<?xml version='1.0' encoding 'UTF-7'?>"},
        {"far after the beginning", "<?xml version='1.0' " + repeated(" ", 3'000) + "encoding='UTF-7'?>"},
        {"after a mark", "\xef\xbb\xbf" + declaration("UTF-7")},
        {"by a style sheet", "<?xml-stylesheet href='a' encoding='UTF-7'?>"},
    };
    const QByteArray deep = hiddenInUtf7(repeated("<a>", 20'000));
    const QByteArray namespaces = hiddenInUtf7(
        numbered(5'000, [](const QByteArray &i) { return "<a xmlns:n" + i + "+AD0AIg-u+ACI->"; }));
    for (const auto &kind : declarations) {
        addForBoth(attacks, QByteArray("depth hidden in UTF-7, declared ") + kind.name, Outcome::Refused,
                   [=](Format) { return kind.declaration + deep; });
        addForBoth(attacks, QByteArray("namespaces hidden in UTF-7, declared ") + kind.name, Outcome::Refused,
                   [=](Format) { return kind.declaration + namespaces; });
    }
    addForBoth(attacks, "markup in the other half of an escape sequence", Outcome::Refused,
               [](Format) { return declaration("ISO-2022-JP") + repeated("\x1b$B!!\x1b(B<a>", 20'000); });
    // After a declaration of an encoding with twice as many bytes per character, one parser continues at
    // twice the offset.
    addForBoth(attacks, "comment that only the guard would see", Outcome::Refused, [](Format) {
        const QByteArray declared = "<?xml version=\"1.0\" encoding=\"UTF-16LE\" ?>";
        const QByteArray unseen = "<!--" + encoded("<!--", "UTF-16LE");
        const QByteArray markup =
            numbered(5'000, [](const QByteArray &i) { return "<a xmlns:n" + i + "='u'>"; });
        return declared + unseen + repeated(" ", declared.size() - unseen.size()) +
               encoded(markup, "UTF-16LE");
    });
}

} // namespace

Attacks encodingAttacks()
{
    Attacks attacks;
    addWide(attacks);
    addHidden(attacks);
    return attacks;
}
