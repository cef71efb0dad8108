#include "Attacks.h"

namespace {

const QByteArray deepMarkup = repeated("&#60;a>", 500);

void add(Attacks &attacks, const QByteArray &name, Outcome outcome, const QByteArray &prolog,
         const QByteArray &body = QByteArray())
{
    addForBoth(attacks, name, outcome, [=](Format format) { return document(format, body, prolog); });
}

/// A chain of entities: each refers to the next one.
QByteArray chain(int length, const QByteArray &text = "x")
{
    return numbered(length, [=](const QByteArray &i) {
        const int next = i.toInt() + 1;
        return entity('e' + i, next == length ? text : "&e" + QByteArray::number(next) + ';');
    });
}

/// A chain of entities that have an element each, with the reference to the next one inside of it.
QByteArray elementChain(int length)
{
    return numbered(length, [](const QByteArray &i) {
        return entity('e' + i, "<a>&e" + QByteArray::number(i.toInt() + 1) + ";</a>");
    });
}

/// Entities that each refer to the next one several times.
QByteArray tree(int height, int width)
{
    return numbered(height, [=](const QByteArray &i) {
        const int next = i.toInt() + 1;
        return entity('e' + i, next == height ? QByteArray("x")
                                              : repeated("&e" + QByteArray::number(next) + ';', width));
    });
}

/// A document type with so many bytes between its keyword and its end.
QByteArray documentTypeOfSize(int size)
{
    const QByteArray frame = " a [<!---->]";
    return "<!DOCTYPE a [<!--" + repeated("x", size - frame.size()) + "-->]>";
}

void addLimits(Attacks &attacks)
{
    add(attacks, "document type as big as may be", Outcome::Read, documentTypeOfSize(16 * 1024));
    add(attacks, "document type one byte too big", Outcome::Refused, documentTypeOfSize(16 * 1024 + 1));
    add(attacks, "document type of 20 MB", Outcome::Refused, documentTypeOfSize(20'000'000));
    add(attacks, "as many declarations as may be", Outcome::Read, documentType(repeated("<!---->", 100)));
    add(attacks, "one declaration too many", Outcome::Refused, documentType(repeated("<!---->", 101)));
    for (const int depth : {16, 17, 1'000, 7'000, 10'000, 100'000, 1'000'000}) {
        addForBoth(attacks, "content model of depth " + QByteArray::number(depth),
                   depth <= Limits::contentModelDepth ? Outcome::Read : Outcome::Refused, [=](Format format) {
                       const QByteArray model = repeated("(", depth) + 'b' + repeated(")", depth);
                       return document(format, QByteArray(), documentType("<!ELEMENT a " + model + '>'));
                   });
    }
    add(attacks, "entities nested as deep as may be", Outcome::Read, documentType(chain(16)), "<b>&e0;</b>");
    add(attacks, "entities nested one level too deep", Outcome::Refused, documentType(chain(17)),
        "<b>&e0;</b>");
    add(attacks, "entities nested too deep, the innermost first", Outcome::Refused, documentType(chain(32)),
        "<b>&e16;&e0;</b>");
    add(attacks, "as many references as may be", Outcome::Read, documentType(entity("e", "x")),
        "<b>" + repeated("&e;", 1'000) + "</b>");
    add(attacks, "one reference too many", Outcome::Refused, documentType(entity("e", "x")),
        "<b>" + repeated("&e;", 1'001) + "</b>");
    add(attacks, "one reference too many, in attributes", Outcome::Refused, documentType(entity("e", "x")),
        repeated("<b c='&e;&e;&e;&e;&e;&e;&e;'/>", 143));
    // 256 references to 256 characters each.
    const QByteArray text = documentType(entity("e", repeated("x", 256)));
    add(attacks, "as many characters of entities as may be", Outcome::Read, text,
        repeated("<b>&e;</b>", 256));
    add(attacks, "too many characters of entities", Outcome::Refused, text, repeated("<b>&e;</b>", 257));
    constexpr int deepestInEntity = 20;
    constexpr int deepestAround = deepestBelowRoot - deepestInEntity;
    const QByteArray elements = documentType(entity("e", nested("b", deepestInEntity)));
    add(attacks, "elements in an entity as deep as may be", Outcome::Read, elements,
        nested("a", deepestAround, "&e;"));
    add(attacks, "elements in an entity one level too deep", Outcome::Refused, elements,
        nested("a", deepestAround + 1, "&e;"));
}

void addExpansions(Attacks &attacks)
{
    add(attacks, "entity that contains itself", Outcome::Refused, documentType(entity("e", "&e;")), "&e;");
    add(attacks, "entity that contains itself many times", Outcome::Refused,
        documentType(entity("e", repeated("&e;", 2'000))), "&e;");
    add(attacks, "entities that contain each other", Outcome::Refused,
        documentType(entity("e", "&f;") + entity("f", "&e;")), "<b c='&e;'/>");
    add(attacks, "entities that grow by powers", Outcome::Refused, documentType(tree(10, 10)), "<b>&e0;</b>");
    add(attacks, "entities that grow by powers, in an attribute", Outcome::Refused,
        documentType(tree(10, 10)), "<b c='&e0;'/>");
    add(attacks, "entities that grow by powers of 90", Outcome::Refused, documentType(tree(16, 90)), "&e0;");
    add(attacks, "long entity over and over", Outcome::Refused,
        documentType(entity("e", repeated("x", 4'000))), "<b>" + repeated("&e;", 100'000) + "</b>");
    add(attacks, "long entity over and over, in attributes", Outcome::Refused,
        documentType(entity("e", repeated("x", 4'000))), repeated("<b c='&e;'/>", 100'000));
    add(attacks, "elements nested through entities, over and over", Outcome::Refused,
        documentType(elementChain(90)), repeated("&e0;", 100));
    for (const int depth : {1'000, 10'000, 100'000, 1'000'000}) {
        addForBoth(
            attacks, QByteArray::number(depth) + " elements nested through entities", Outcome::Refused,
            [=](Format format) { return document(format, "&e0;", documentType(elementChain(depth))); });
    }
    add(attacks, "declared again and worse", Outcome::Refused,
        documentType(entity("e", "x") + entity("e", deepMarkup)), repeated("&e;", 100));
    add(attacks, "parameter entities", Outcome::Refused, documentType("<!ENTITY % p '<!ENTITY e \"x\">'>%p;"),
        "&e;");
    add(attacks, "parameter entities that grow by powers", Outcome::Refused,
        documentType("<!ENTITY % a 'x'>" + numbered(20, [](const QByteArray &i) {
                         return "<!ENTITY % b" + i + " '" + repeated("&#37;a;", 50) + "'>%b" + i + ';';
                     })));
    add(attacks, "parameter entity that is only declared", Outcome::Read, documentType("<!ENTITY % p 'x'>"));
}

/// Default attributes.
void addDefaults(Attacks &attacks)
{
    const auto defaults = [](int count) {
        return documentType("<!ATTLIST b " +
                            numbered(count, [](const QByteArray &i) { return 'c' + i + " CDATA 'x' "; }) +
                            '>');
    };
    // Every element counts, including the two of the frame.
    addForBoth(attacks, "as many default attributes as may be", Outcome::Read, [=](Format format) {
        const int others = format == Format::Legacy ? 3 : 2;
        return document(format, repeated("<b/>", 100 - others), defaults(100));
    });
    addForBoth(attacks, "one element too many with default attributes", Outcome::Refused, [=](Format format) {
        const int others = format == Format::Legacy ? 3 : 2;
        return document(format, repeated("<b/>", 101 - others), defaults(100));
    });
    add(attacks, "default attributes of 100,000 elements", Outcome::Refused, defaults(300),
        repeated("<b/>", 100'000));
    const QByteArray longDefault = documentType("<!ATTLIST b c CDATA '" + repeated("x", 10'000) + "'>");
    add(attacks, "long default attribute of 20 elements", Outcome::Read, longDefault, repeated("<b/>", 20));
    add(attacks, "long default attribute of 30 elements", Outcome::Refused, longDefault,
        repeated("<b/>", 30));
    add(attacks, "attributes without defaults of 100,000 elements", Outcome::Refused,
        documentType("<!ATTLIST b " +
                     numbered(700, [](const QByteArray &i) { return 'c' + i + " CDATA #IMPLIED "; }) + '>'),
        repeated("<b/>", 100'000));
    add(attacks, "entities in a default attribute", Outcome::Refused,
        documentType(entity("e", repeated("x", 3'000)) + entity("f", repeated("&e;", 1'000)) +
                     "<!ATTLIST b c CDATA '" + repeated("&f;", 300) + "'>"));
    add(attacks, "namespaces by default", Outcome::Refused,
        documentType("<!ATTLIST b " +
                     numbered(90, [](const QByteArray &i) { return "xmlns:n" + i + " CDATA 'u' "; }) + '>'),
        "<b/>");
}

/// Constructs that make a document type look different from what it is.
void addDisguises(Attacks &attacks)
{
    const QByteArray deep = entity("e", deepMarkup);
    const QByteArray references = repeated("&e;", 100);
    add(attacks, "parentheses closed before they open", Outcome::Refused,
        documentType("<!-- " + repeated(")", 7'000) + " --><!ELEMENT a " + repeated("(", 7'000) + '>'));
    add(attacks, "declaration hidden by one in a comment", Outcome::Refused,
        documentType("<!-- <!ENTITY x \" -->" + deep + "<!-- \" -->"), references);
    add(attacks, "declaration hidden by one in an instruction", Outcome::Refused,
        documentType("<?x <!ENTITY x \" ?>" + deep + "<?x \" ?>"), references);
    add(attacks, "declaration hidden by one in a system identifier", Outcome::Refused,
        documentType("<!ENTITY z SYSTEM '<!ENTITY x \"'>" + deep), references);
    add(attacks, "comment that ends later than it seems", Outcome::Refused,
        documentType("<!---> ]> --> " + deep), references);
    add(attacks, "comment that ends later than it seems, with a quote", Outcome::Refused,
        documentType("<!---> \" -->" + deep), references);
    add(attacks, "instruction that ends earlier than it seems", Outcome::Refused, documentType("<?x <?>"),
        repeated("<a>", 5'000));
    add(attacks, "end of the document type in quotes", Outcome::Refused,
        documentType("<!ENTITY x ']>'>" + deep), references);
    add(attacks, "end of the document type in an instruction", Outcome::Refused,
        documentType("<?x ]>'\" ?>" + deep), references);
    add(attacks, "name of an entity put together of characters", Outcome::Refused,
        documentType(entity("xe", deepMarkup) + entity("f", repeated("&#38;x&#101;;", 10))),
        repeated("&f;", 10));
    add(attacks, "name of an entity with a character by its number", Outcome::Refused,
        documentType(entity("x\xc3\xa9", deepMarkup) + entity("f", repeated("&#38;x&#233;;", 10))),
        repeated("&f;", 10));
    add(attacks, "reference over the end of an entity", Outcome::Refused,
        documentType(entity("xe", deepMarkup) + entity("f", "&#38;x")), repeated("&f;e;", 100));
    add(attacks, "markup of characters that only fit 16 bits when cut", Outcome::Refused,
        documentType(entity("e", repeated("&#x1003C;a>", 500))), references);
    add(attacks, "entity that begins character data", Outcome::Refused,
        documentType(entity("e", "<![CDATA[")),
        repeated(repeated("<a>", 45) + "&e;" + repeated("</a>", 45) + "]]>", 45));
    add(attacks, "entity that begins a comment", Outcome::Refused, documentType(entity("e", "<!--")),
        repeated(repeated("<a>", 45) + "&e;" + repeated("</a>", 45) + "-->", 45));
    add(attacks, "entity that begins a tag", Outcome::Refused, documentType(entity("e", "<GroupLevel ")),
        "<View><Column><VisibilityRestriction Simple='false'>&e;" + numbered(60'000, [](const QByteArray &i) {
            return " level" + i + "=''";
        }) + "/></VisibilityRestriction></Column></View>");
    add(attacks, "entity that only ends elements", Outcome::Refused,
        documentType(entity("e", "</a></a><a><a>")), "<a><a>&e;</a></a>");
    addForBoth(attacks, "300 document types", Outcome::Refused, [](Format format) {
        const QByteArray entities = numbered(90, [](const QByteArray &i) { return entity('e' + i, "y"); });
        return document(format, QByteArray(), repeated(documentType(entities), 300));
    });
    addForBoth(attacks, "300 document types of different entities", Outcome::Refused, [](Format format) {
        const QByteArray types = numbered(300, [](const QByteArray &i) {
            return documentType(
                numbered(90, [&](const QByteArray &k) { return entity('e' + i + 'x' + k, "y"); }));
        });
        return document(format, QByteArray(), types);
    });
    add(attacks, "document type that does not end", Outcome::Refused,
        "<!DOCTYPE a [" + repeated("<!ELEMENT b ANY>", 100'000));
}

} // namespace

Attacks documentTypeAttacks()
{
    Attacks attacks;
    addLimits(attacks);
    addExpansions(attacks);
    addDefaults(attacks);
    addDisguises(attacks);
    return attacks;
}
