#include "Attacks.h"

#include "support/CountedDocuments.h"

#include <utility>

namespace {

using Pair = std::pair<QByteArray, QByteArray>;

constexpr int huge = 20'000'000;

void addHuge(Attacks &attacks)
{
    static const struct
    {
        const char *name;
        QByteArray before;
        QByteArray after;
    } kinds[] = {
        {"attribute value", "<a b='", "'/>"},
        {"text", "<a>", "</a>"},
        {"comment", "<!--", "-->"},
        {"instruction", "<?x ", "?>"},
        {"character data", "<a><![CDATA[", "]]></a>"},
    };
    for (const auto &kind : kinds) {
        addForBoth(attacks, QByteArray(kind.name) + " of 20 MB", Outcome::Read, [=](Format format) {
            return document(format, kind.before + repeated("x", huge) + kind.after);
        });
    }
    // One parser has its own limit for names.
    for (const auto &around : {Pair("<", "/>"), Pair("<a ", "=''/>")}) {
        const auto text = [=](Format format) {
            return document(format, around.first + repeated("x", huge) + around.second);
        };
        const QByteArray name = around.first + "... of 20 MB";
        attacks.push_back(
            {name + ", legacy", Outcome::Broken, [=] { return text(Format::Legacy); }, Format::Legacy});
        attacks.push_back(
            {name + ", current", Outcome::Read, [=] { return text(Format::Current); }, Format::Current});
    }
    attacks.push_back({"caption of 20 MB, current", Outcome::Read,
                       [] {
                           return document(Format::Current,
                                           "<View><Column DataType='Text'><Caption><TextItem>" +
                                               repeated("x", huge) + "</TextItem></Caption></Column></View>");
                       },
                       Format::Current});
    attacks.push_back({"caption of 20 MB, legacy", Outcome::Read,
                       [] {
                           return document(Format::Legacy,
                                           "<PROGVIEW/><SYSCOL><COL_DataType>TXT</COL_DataType>"
                                           "<COL_Caption>" +
                                               repeated("x", huge) + "</COL_Caption></SYSCOL>");
                       },
                       Format::Legacy});
}

/// The smallest markup of everything that a parser creates an object for.
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
        "<ValueList/>",
        "<a b='' c='' d='' e='' f='' g='' h=''/>",
    };
    for (const auto &kind : kinds) {
        addForBoth(attacks, kind + " over and over", Outcome::Read,
                   [=](Format format) { return document(format, repeated(kind, 1'000'000 / kind.size())); });
    }
    // Limited to a smaller number.
    attacks.push_back({"<View/> over and over", Outcome::Refused,
                       [] { return document(Format::Current, repeated("<View/>", 150'000)); },
                       Format::Current});
    // An undeclared entity.
    attacks.push_back({"unknown entities over and over, current", Outcome::Read,
                       [] { return document(Format::Current, repeated("x&a;", 250'000)); }, Format::Current});
    attacks.push_back({"unknown entities over and over, legacy", Outcome::Broken,
                       [] { return document(Format::Legacy, repeated("x&a;", 250'000)); }, Format::Legacy});
    // Large enough that the growth of memory is visible.
    for (const auto &kind : {QByteArray("<a/>"), QByteArray("<a b=''/>"), QByteArray("x<!---->")}) {
        addForBoth(attacks, "4 MB of " + kind, Outcome::Read,
                   [=](Format format) { return document(format, repeated(kind, 4'000'000 / kind.size())); });
    }
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

void addCounted(Attacks &attacks, Format format, const QByteArray &formatName,
                const std::vector<CountedKind> &kinds)
{
    for (const auto &kind : kinds) {
        const QByteArray name = kind.name + formatName;
        attacks.push_back({"as many as may be: " + name, Outcome::Read,
                           [=] { return documentWith(kind, kind.most); }, format});
        attacks.push_back({"one too many: " + name, Outcome::Refused,
                           [=] { return documentWith(kind, kind.most + 1); }, format});
        attacks.push_back(
            {"a million: " + name, Outcome::Refused, [=] { return documentWith(kind, 1'000'000); }, format});
    }
}

/// The maximum of everything in one template.
void addFull(Attacks &attacks)
{
    const auto columns = [](const QByteArray &column) {
        return repeated(column, Limits::columns / Limits::views);
    };
    const auto items = [](const QByteArray &item) {
        return repeated(item, Limits::listItems / Limits::views);
    };
    attacks.push_back(
        {"as many columns and items as may be in as many views as may be, legacy", Outcome::Read,
         [=] {
             return document(Format::Legacy, numbered(Limits::views, [=](const QByteArray &i) {
                                 return "<PROGVIEW><PV_PK>" + i + "</PV_PK></PROGVIEW>" +
                                        columns("<SYSCOL><COL_ProgView_FK>" + i +
                                                "</COL_ProgView_FK><COL_DataType>TXT"
                                                "</COL_DataType></SYSCOL>") +
                                        items("<SYSLIST><LIST_Name>" + i + "</LIST_Name></SYSLIST>");
                             }));
         },
         Format::Legacy});
    attacks.push_back(
        {"as many columns and items as may be in as many views as may be, current", Outcome::Read,
         [=] {
             return document(Format::Current, numbered(Limits::views, [=](const QByteArray &i) {
                                 return "<View Id='" + i + "'>" + columns("<Column DataType='Text'/>") +
                                        "</View><ValueList Name='" + i + "'>" + items("<ValueListItem/>") +
                                        "</ValueList>";
                             }));
         },
         Format::Current});
}

void addViewsOfOneId(Attacks &attacks)
{
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
    addCounted(attacks, Format::Legacy, ", legacy", countedLegacyKinds());
    addCounted(attacks, Format::Current, ", current", countedCurrentKinds());
    addFull(attacks);
    addViewsOfOneId(attacks);
    return attacks;
}
