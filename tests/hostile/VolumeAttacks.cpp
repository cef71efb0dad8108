#include "Attacks.h"

#include <utility>

namespace {

using Pair = std::pair<QByteArray, QByteArray>;

constexpr int huge = 20'000'000;
constexpr int mostColumns = 250'000;
constexpr int mostListItems = 250'000;
constexpr int mostBands = 100'000;

void addHuge(Attacks &attacks)
{
    static const struct
    {
        const char *name;
        QByteArray before;
        QByteArray behind;
    } kinds[] = {
        {"attribute value", "<a b='", "'/>"},
        {"text", "<a>", "</a>"},
        {"comment", "<!--", "-->"},
        {"instruction", "<?x ", "?>"},
        {"character data", "<a><![CDATA[", "]]></a>"},
    };
    for (const auto &kind : kinds) {
        addForBoth(
            attacks, QByteArray(kind.name) + " of 20 MB", Outcome::Read,
            [=](Format format) { return document(format, kind.before + repeated("x", huge) + kind.behind); },
            true);
    }
    // One parser has a limit of its own for names.
    for (const auto &around : {Pair("<", "/>"), Pair("<a ", "=''/>")}) {
        const auto text = [=](Format format) {
            return document(format, around.first + repeated("x", huge) + around.second);
        };
        const QByteArray name = around.first + "... of 20 MB";
        attacks.push_back(
            {name + ", legacy", Outcome::Broken, [=] { return text(Format::Legacy); }, Format::Legacy, true});
        attacks.push_back({name + ", current", Outcome::Read, [=] { return text(Format::Current); },
                           Format::Current, true});
    }
    attacks.push_back({"caption of 20 MB, current", Outcome::Read,
                       [] {
                           return document(Format::Current,
                                           "<View><Column DataType='Text'><Caption><TextItem>" +
                                               repeated("x", huge) + "</TextItem></Caption></Column></View>");
                       },
                       Format::Current, true});
    attacks.push_back({"caption of 20 MB, legacy", Outcome::Read,
                       [] {
                           return document(Format::Legacy,
                                           "<PROGVIEW/><SYSCOL><COL_DataType>TXT</COL_DataType>"
                                           "<COL_Caption>" +
                                               repeated("x", huge) + "</COL_Caption></SYSCOL>");
                       },
                       Format::Legacy, true});
}

/// The smallest of everything that a parser makes an object of.
void addSmall(Attacks &attacks)
{
    static const QByteArray kinds[] = {
        "<a/>",
        "<a b=''/>",
        "<a/>x",
        "<a></a>",
        "<!---->",
        "<?a?>",
        "<a><![CDATA[]]></a>",
        "x<!---->",
        "&lt;",
        "<Name/>",
        "<Column/>",
        "<Catalog/>",
        "<PROGVIEW/>",
        "<SYSTPL/>",
        "<LegendOfClassification/>",
        "<a b='' c='' d='' e='' f='' g='' h=''/>",
    };
    for (const auto &kind : kinds) {
        addForBoth(attacks, kind + " over and over", Outcome::Read,
                   [=](Format format) { return document(format, repeated(kind, 1'000'000 / kind.size())); });
    }
    // There may be fewer of these.
    for (const auto &kind : {QByteArray("<View/>"), QByteArray("<ValueList/>")}) {
        attacks.push_back({kind + " over and over", Outcome::Bounded,
                           [=] { return document(Format::Current, repeated(kind, 1'000'000 / kind.size())); },
                           Format::Current});
    }
    // No parser knows this entity.
    attacks.push_back({"unknown entities over and over, current", Outcome::Read,
                       [] { return document(Format::Current, repeated("x&a;", 250'000)); }, Format::Current});
    attacks.push_back({"unknown entities over and over, legacy", Outcome::Broken,
                       [] { return document(Format::Legacy, repeated("x&a;", 250'000)); }, Format::Legacy});
    addForBoth(attacks, "300,000 character data sections", Outcome::Read, [](Format format) {
        return document(format, "<a>" + repeated("<![CDATA[x]]>", 300'000) + "</a>");
    });
    attacks.push_back({"300,000 character data sections in a caption, current", Outcome::Read,
                       [] {
                           return document(Format::Current,
                                           "<View><Column DataType='Text'><Caption><TextItem>" +
                                               repeated("<![CDATA[x]]>", 300'000) +
                                               "</TextItem></Caption></Column></View>");
                       },
                       Format::Current});
    attacks.push_back({"300,000 character data sections in a caption, legacy", Outcome::Read,
                       [] {
                           return document(Format::Legacy, "<LegendOfClassification><class/><legendA>" +
                                                               repeated("<![CDATA[x]]>", 300'000) +
                                                               "</legendA></LegendOfClassification>");
                       },
                       Format::Legacy});
}

QByteArray legacyColumns(int count)
{
    return document(Format::Legacy,
                    "<PROGVIEW/>" + repeated("<SYSCOL><COL_DataType>TXT</COL_DataType></SYSCOL>", count));
}

QByteArray currentColumns(int count)
{
    return document(Format::Current, "<View>" + repeated("<Column/>", count) + "</View>");
}

QByteArray legacyItems(int count)
{
    return document(Format::Legacy, repeated("<SYSLIST><LIST_Name>n</LIST_Name></SYSLIST>", count));
}

QByteArray currentItems(int count)
{
    return document(Format::Current,
                    "<ValueList Name='n'>" + repeated("<ValueListItem/>", count) + "</ValueList>");
}

QByteArray currentBands(int count)
{
    return document(Format::Current,
                    "<ClassificationColorScopes><ClassificationColorScope Name='ClassColorDefault' "
                    "Scope='Section'>" +
                        repeated("<ClassificationColor/>", count) +
                        "</ClassificationColorScope></ClassificationColorScopes>");
}

QByteArray legacyBands(int count)
{
    return document(Format::Legacy,
                    "<LegendOfClassification>" + repeated("<class/>", count) + "</LegendOfClassification>");
}

void addCounted(Attacks &attacks)
{
    static const struct
    {
        const char *name;
        QByteArray (*document)(int);
        int most;
        Format format;
    } kinds[] = {
        {"columns, legacy", legacyColumns, mostColumns, Format::Legacy},
        {"columns, current", currentColumns, mostColumns, Format::Current},
        {"list items, legacy", legacyItems, mostListItems, Format::Legacy},
        {"list items, current", currentItems, mostListItems, Format::Current},
        {"bands, legacy", legacyBands, mostBands, Format::Legacy},
        {"bands, current", currentBands, mostBands, Format::Current},
    };
    for (const auto &kind : kinds) {
        const QByteArray name = kind.name;
        attacks.push_back({"as many as may be: " + name, Outcome::Read,
                           [=] { return kind.document(kind.most); }, kind.format, true});
        attacks.push_back({"one too many: " + name, Outcome::Refused,
                           [=] { return kind.document(kind.most + 1); }, kind.format, true});
        attacks.push_back({"a million: " + name, Outcome::Refused, [=] { return kind.document(1'000'000); },
                           kind.format, true});
    }
    attacks.push_back(
        {"ten thousand views of one id, legacy", Outcome::Read,
         [] { return document(Format::Legacy, repeated("<PROGVIEW><PV_PK>v</PV_PK></PROGVIEW>", 10'000)); },
         Format::Legacy});
    attacks.push_back({"ten thousand views of one id, current", Outcome::Read,
                       [] {
                           return document(Format::Current,
                                           repeated("<View Id='v'><Column DataType='Text'/></View>", 10'000));
                       },
                       Format::Current});
}

} // namespace

Attacks volumeAttacks()
{
    Attacks attacks;
    addHuge(attacks);
    addSmall(attacks);
    addCounted(attacks);
    return attacks;
}
