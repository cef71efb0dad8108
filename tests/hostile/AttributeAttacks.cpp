#include "Attacks.h"

namespace {

QByteArray attributes(int count)
{
    return numbered(count, [](const QByteArray &i) { return " level" + i + "='true'"; });
}

QByteArray groupLevel(int count)
{
    return "<View><Column DataType='Text'><VisibilityRestriction Simple='false'><GroupLevel" +
           attributes(count) + "/></VisibilityRestriction></Column></View>";
}

QByteArray namespaces(int count)
{
    return numbered(count, [](const QByteArray &i) { return " xmlns:n" + i + "='u" + i + "'"; });
}

void addAttributes(Attacks &attacks)
{
    for (const int count : {100, 256, 257, 1'000, 10'000, 100'000}) {
        const QByteArray number = QByteArray::number(count) + " attributes";
        const Outcome outcome = count <= 256 ? Outcome::Read : Outcome::Refused;
        addForBoth(attacks, number, outcome,
                   [=](Format format) { return document(format, "<a" + attributes(count) + "/>"); });
        attacks.push_back({number + " on a group level", outcome,
                           [=] { return document(Format::Current, groupLevel(count)); }, Format::Current});
        attacks.push_back({number + " on a legend class", outcome,
                           [=] {
                               return document(Format::Legacy, "<LegendOfClassification><class" +
                                                                   attributes(count) +
                                                                   "/></LegendOfClassification>");
                           },
                           Format::Legacy});
    }
    addForBoth(attacks, "attributes without spaces between them", Outcome::Refused, [](Format format) {
        return document(format,
                        "<a " + numbered(257, [](const QByteArray &i) { return 'b' + i + "=''"; }) + "/>");
    });
    addForBoth(attacks, "1,000 elements with 250 attributes each", Outcome::Read, [](Format format) {
        return document(format, repeated("<a" + attributes(250) + "/>", 1'000));
    });
    attacks.push_back({"1,000 group levels with 250 attributes each", Outcome::Read,
                       [] { return document(Format::Current, repeated(groupLevel(250), 1'000)); },
                       Format::Current});
    addForBoth(attacks, "one attribute twice", Outcome::Broken,
               [](Format format) { return document(format, "<a b='' b=''>" + repeated("<", 3)); });
}

void addNamespaces(Attacks &attacks)
{
    addForBoth(attacks, "as many namespaces as may be", Outcome::Read,
               [](Format format) { return document(format, "<a" + namespaces(64) + "/>"); });
    addForBoth(attacks, "one namespace too many", Outcome::Refused,
               [](Format format) { return document(format, "<a" + namespaces(65) + "/>"); });
    addForBoth(attacks, "one namespace too many, on an element each", Outcome::Refused,
               [](Format format) { return document(format, repeated("<a xmlns='u'/>", 65)); });
    addForBoth(attacks, "one namespace too many, with spaces", Outcome::Refused, [](Format format) {
        return document(format, repeated("<a b='' \n xmlns:c \t = \r 'u'/>", 65));
    });
    addForBoth(attacks, "one namespace too many, in entities", Outcome::Refused, [](Format format) {
        return document(format, repeated("&e;", 65), documentType(entity("e", "<b xmlns='u'/>")));
    });
    addForBoth(attacks, "60,000 attributes after a fault", Outcome::Refused, [](Format format) {
        const QByteArray many = numbered(60'000, [](const QByteArray &i) { return " b" + i + "=''"; });
        return document(format, "<a b='&x;'" + many + "/>");
    });
    addForBoth(attacks, "300,000 elements with the first of 64 prefixes", Outcome::Read, [](Format format) {
        return document(format, "<a" + namespaces(64) + '>' + repeated("<n0:b/>", 300'000) + "</a>");
    });
    addForBoth(attacks, "prefixed attributes and 64 prefixes", Outcome::Read, [](Format format) {
        const QByteArray prefixed = numbered(190, [](const QByteArray &i) { return " n0:b" + i + "=''"; });
        return document(format,
                        "<a" + namespaces(64) + '>' + repeated("<b" + prefixed + "/>", 1'000) + "</a>");
    });
    addForBoth(
        attacks, "20,000 namespaces and as many prefixed children", Outcome::Refused, [](Format format) {
            return document(format, "<a" + namespaces(20'000) + '>' + repeated("<n0:b/>", 20'000) + "</a>");
        });
}

} // namespace

Attacks attributeAttacks()
{
    Attacks attacks;
    addAttributes(attacks);
    addNamespaces(attacks);
    return attacks;
}
