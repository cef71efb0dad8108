#include "Attacks.h"

#include <QList>

namespace {

/// A text that a parser keeps in several nodes, so that each reader has to join them.
QByteArray textInPieces(int size)
{
    return repeated("x", size / 2) + "<!---->" + repeated("x", size / 2);
}

void add(Attacks &attacks, const QByteArray &name, Outcome outcome, const std::function<QByteArray()> &body)
{
    attacks.push_back({name, outcome, [=] { return document(Format::Current, body()); }, Format::Current});
}

/// Nested elements of several names in turn, around a text.
QByteArray enclosed(int times, const QList<QByteArray> &names, const QByteArray &text)
{
    QByteArray begin;
    QByteArray end;
    for (const auto &name : names) {
        begin += '<' + name + '>';
        end.prepend("</" + name + '>');
    }
    return repeated(begin, times) + text + repeated(end, times);
}

QByteArray columnTexts(const QByteArray &text)
{
    return "<Caption><ToolTip><TextItem>" + text + "</TextItem></ToolTip></Caption>";
}

QByteArray legends(const QByteArray &legendClasses)
{
    return "<ClassificationColorScopes><ClassificationColorScope Name='ClassColorDefault' Scope='Section'>" +
           legendClasses + "</ClassificationColorScope></ClassificationColorScopes>";
}

// Leaves levels for the content, for the elements in it, and for the root.
constexpr int containers = Limits::depth - 8;
static_assert(containers >= 20, "there would be little to multiply");

void addCounts(Attacks &attacks)
{
    constexpr int columns = Limits::columns / containers;
    add(attacks, "views around as many columns as may be", Outcome::Read,
        [] { return nested("View", containers, repeated("<Column DataType='Text'/>", columns)); });
    add(attacks, "views around too many columns", Outcome::Refused,
        [] { return nested("View", containers, repeated("<Column DataType='Text'/>", columns + 1)); });
    add(attacks, "20 views around 100,000 columns", Outcome::Refused,
        [] { return nested("View", 20, repeated("<Column/>", 100'000)); });
    add(attacks, "lists around 50,000 items", Outcome::Refused,
        [] { return nested("ValueList", containers, repeated("<ValueListItem/>", 50'000)); });
    add(attacks, "nested items, 10,000 times", Outcome::Refused,
        [] { return nested("ValueList", 1, repeated(nested("ValueListItem", containers), 10'000)); });
    add(attacks, "scopes around 50,000 legend classes", Outcome::Refused, [] {
        return "<ClassificationColorScopes>" +
               repeated("<ClassificationColorScope Name='ClassColorDefault' Scope='Section'>", containers) +
               repeated("<ClassificationColor/>", 50'000) +
               repeated("</ClassificationColorScope>", containers) + "</ClassificationColorScopes>";
    });
    add(attacks, "scopes around 100,000 default values", Outcome::Read, [] {
        return "<DefaultValues>" +
               nested("DefaultValueScope", containers, repeated("<DefaultValueItem/>", 100'000)) +
               "</DefaultValues>";
    });
    add(attacks, "scopes around different default values", Outcome::Read, [] {
        return "<DefaultValues>" +
               nested("DefaultValueScope", containers,
                      numbered(20'000,
                               [](const QByteArray &i) { return "<DefaultValueItem View='" + i + "'/>"; })) +
               "</DefaultValues>";
    });
    add(attacks, "columns around 300,000 names", Outcome::Read,
        [] { return nested("Column", containers, repeated("<Name/>", 300'000)); });
    add(attacks, "presets around 100,000 properties", Outcome::Read, [] {
        return "<ClassificationColorPresets>" +
               repeated("<ClassificationColorPreset Scope='Section' Chapter='Color'>", containers) +
               repeated("<PresetProperty PropertyName='p'/>", 100'000) +
               repeated("</ClassificationColorPreset>", containers) + "</ClassificationColorPresets>";
    });
}

void addTexts(Attacks &attacks)
{
    constexpr int size = 2'000'000;
    const auto inColumns = [](const QByteArray &inner) { return nested("Column", containers, inner); };
    add(attacks, "columns around one text", Outcome::Read,
        [=] { return inColumns(columnTexts(textInPieces(size))); });
    add(attacks, "columns of a view around one text", Outcome::Read,
        [=] { return nested("View", 1, inColumns(columnTexts(textInPieces(size)))); });
    add(attacks, "columns around a text of many pieces", Outcome::Read,
        [=] { return inColumns(columnTexts(repeated("x&a;", size / 4))); });
    add(attacks, "columns around the name of a list", Outcome::Read,
        [=] { return inColumns(nested("ValueListName", 1, repeated("x&a;", size / 4))); });
    add(attacks, "items around one text", Outcome::Read, [] {
        return nested("ValueList", 1,
                      nested("ValueListItem", containers,
                             "<Captions><TextItem>" + textInPieces(size) + "</TextItem></Captions>"));
    });
    add(attacks, "legend classes around one text", Outcome::Read, [] {
        return legends(
            nested("ClassificationColor", containers,
                   "<TextA><TextB><TextItem>" + textInPieces(size) + "</TextItem></TextB></TextA>"));
    });
    add(attacks, "texts of nested columns", Outcome::Read, [] {
        return enclosed(deepestBelowRoot / 3, {"Column", "Caption", "TextItem"}, textInPieces(size));
    });
    add(attacks, "two texts of nested columns", Outcome::Read, [] {
        return enclosed(deepestBelowRoot / 5, {"Column", "Caption", "TextItem", "ToolTip", "TextItem"},
                        textInPieces(size));
    });
    add(attacks, "names around one text", Outcome::Read,
        [] { return nested("Name", containers, textInPieces(size)); });
}

} // namespace

Attacks multiplicationAttacks()
{
    Attacks attacks;
    addCounts(attacks);
    addTexts(attacks);
    return attacks;
}
