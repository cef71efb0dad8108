#include "Attacks.h"

void addForBoth(Attacks &attacks, const QByteArray &name, Outcome outcome,
                const std::function<QByteArray(Format)> &document)
{
    for (const Format format : {Format::Legacy, Format::Current}) {
        const QByteArray formatName = format == Format::Legacy ? ", legacy" : ", current";
        attacks.push_back({name + formatName, outcome, [=] { return document(format); }, format});
    }
}

namespace {

QByteArray withinColumn(Format format, const QByteArray &inner)
{
    return document(format, format == Format::Legacy ? "<SYSCOL>" + inner + "</SYSCOL>"
                                                     : "<View><Column>" + inner + "</Column></View>");
}

QByteArray withinSection(const QByteArray &inner)
{
    return document(Format::Legacy, "<SYSTPL>" + inner + "</SYSTPL>");
}

void addDepths(Attacks &attacks)
{
    for (const int depth : {1'000, 10'000, 100'000, 1'000'000}) {
        const QByteArray levels = QByteArray::number(depth) + " levels";
        addForBoth(attacks, levels, Outcome::Refused,
                   [=](Format format) { return document(format, nested("a", depth)); });
        addForBoth(attacks, levels + ", unclosed", Outcome::Refused,
                   [=](Format) { return repeated("<a>", depth); });
        addForBoth(attacks, levels + " with a namespace each", Outcome::Refused, [=](Format) {
            return numbered(depth, [](const QByteArray &i) { return "<a xmlns:n" + i + "='u'>"; });
        });
        addForBoth(attacks, levels + " within a column", Outcome::Refused, [=](Format format) {
            return withinColumn(format, nested(format == Format::Legacy ? "COL_PK" : "Caption", depth));
        });
        addForBoth(attacks, levels + " within a column, unclosed", Outcome::Refused, [=](Format format) {
            return document(format, (format == Format::Legacy ? "<SYSCOL>" : "<View><Column>") +
                                        repeated("<a>", depth));
        });
        attacks.push_back({levels + " within a section, legacy", Outcome::Refused,
                           [=] { return withinSection(nested("TPL_Key", depth)); }, Format::Legacy});
        attacks.push_back({levels + " within a section, unclosed, legacy", Outcome::Refused,
                           [=] { return "<TXSYS><SYSTPL>" + repeated("<TPL_Key>", depth); }, Format::Legacy});
    }
}

void addKinds(Attacks &attacks)
{
    static const struct
    {
        const char *name;
        Format format;
    } kinds[] = {
        {"TXSYS", Format::Legacy},      {"SYSTPL", Format::Legacy},
        {"PROGVIEW", Format::Legacy},   {"SYSCOL", Format::Legacy},
        {"SYSLIST", Format::Legacy},    {"LegendOfClassification", Format::Legacy},
        {"View", Format::Current},      {"Column", Format::Current},
        {"ValueList", Format::Current}, {"ValueListItem", Format::Current},
        {"Name", Format::Current},      {"ClassificationColorScope", Format::Current},
        {"TextItem", Format::Current},  {"DefaultValueScope", Format::Current},
    };
    for (const auto &kind : kinds) {
        attacks.push_back({"nested " + QByteArray(kind.name), Outcome::Refused,
                           [=] { return document(kind.format, nested(kind.name, 20'000)); }, kind.format});
    }
}

void addLimit(Attacks &attacks)
{
    addForBoth(attacks, "as deep as may be", Outcome::Read,
               [](Format format) { return document(format, nested("a", deepestBelowRoot)); });
    addForBoth(attacks, "one level too deep", Outcome::Refused,
               [](Format format) { return document(format, nested("a", deepestBelowRoot + 1)); });
    addForBoth(attacks, "one level too deep by an empty element", Outcome::Refused,
               [](Format format) { return document(format, nested("a", deepestBelowRoot, "<a/>")); });
    addForBoth(attacks, "as deep as may be, over and over", Outcome::Read, [](Format format) {
        return document(format, repeated(nested("a", deepestBelowRoot), 1'000));
    });
}

/// Constructs that look like end tags, or hide start tags, from a simple scanner.
void addDisguises(Attacks &attacks)
{
    static const struct
    {
        const char *name;
        QByteArray text;
    } disguises[] = {
        {"a comment with end tags", "<!-- </a></a> -->"},
        {"a comment that seems to end early", "<!--> </a> -> </a> -->"},
        {"a comment of dashes", "<!---></a>-->"},
        {"character data with end tags", "<![CDATA[</a>]] ></a>]]]>"},
        {"an instruction with end tags", "<?x </a>? ></a>?>"},
        {"an attribute with end tags", "<b c='/>' d=\"'/&gt;\"></b>"},
        {"an attribute with a slash at its end", "<b c='/'></b>"},
        {"an element with spaces in its tags", "<b \n\t\r/>"},
        {"an empty element in upper case", "<B/>"},
    };
    for (const auto &disguise : disguises) {
        const auto step = "<a>" + disguise.text;
        addForBoth(
            attacks, QByteArray(disguise.name) + " at every level", Outcome::Refused,
            [=](Format format) { return document(format, repeated(step, 5'000) + repeated("</a>", 5'000)); });
        addForBoth(attacks, QByteArray(disguise.name) + " at as many levels as may be", Outcome::Read,
                   [=](Format format) {
                       return document(format, repeated(step, deepestBelowRoot - 1) +
                                                   repeated("</a>", deepestBelowRoot - 1));
                   });
    }
    addForBoth(attacks, "null characters between start tags", Outcome::Refused,
               [](Format) { return repeated(QByteArray("<a>\0", 4), 20'000); });
}

} // namespace

Attacks nestingAttacks()
{
    Attacks attacks;
    addDepths(attacks);
    addKinds(attacks);
    addLimit(attacks);
    addDisguises(attacks);
    return attacks;
}
