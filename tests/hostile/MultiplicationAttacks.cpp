#include "Attacks.h"

#include <QList>

namespace {

/// A text that a parser keeps in pieces, so that whoever asks for it has to put it together.
QByteArray textInPieces(int size)
{
    return repeated("x", size / 2) + "<!---->" + repeated("x", size / 2);
}

void add(Attacks &attacks, const QByteArray &name, Outcome outcome, const std::function<QByteArray()> &body,
         bool isBig = false)
{
    attacks.push_back(
        {name, outcome, [=] { return document(Format::Current, body()); }, Format::Current, isBig});
}

/// Elements of several names in each other, over and over, around a text.
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

QByteArray legends(const QByteArray &bands)
{
    return "<ClassificationColorScopes><ClassificationColorScope Name='ClassColorDefault' Scope='Section'>" +
           bands + "</ClassificationColorScope></ClassificationColorScopes>";
}

void addCounts(Attacks &attacks)
{
    add(
        attacks, "50 views around 5,000 columns", Outcome::Read,
        [] { return nested("View", 50, repeated("<Column DataType='Text'/>", 5'000)); }, true);
    add(
        attacks, "50 views around 5,001 columns", Outcome::Refused,
        [] { return nested("View", 50, repeated("<Column DataType='Text'/>", 5'001)); }, true);
    add(
        attacks, "20 views around 100,000 columns", Outcome::Refused,
        [] { return nested("View", 20, repeated("<Column/>", 100'000)); }, true);
    add(attacks, "90 lists around 50,000 items", Outcome::Refused,
        [] { return nested("ValueList", 90, repeated("<ValueListItem/>", 50'000)); });
    add(
        attacks, "90 items in each other, 10,000 times", Outcome::Refused,
        [] { return nested("ValueList", 1, repeated(nested("ValueListItem", 90), 10'000)); }, true);
    add(attacks, "60 scopes around 50,000 bands", Outcome::Refused, [] {
        return "<ClassificationColorScopes>" +
               repeated("<ClassificationColorScope Name='ClassColorDefault' Scope='Section'>", 60) +
               repeated("<ClassificationColor/>", 50'000) + repeated("</ClassificationColorScope>", 60) +
               "</ClassificationColorScopes>";
    });
    add(attacks, "90 scopes around 100,000 default values", Outcome::Read, [] {
        return "<DefaultValues>" + nested("DefaultValueScope", 90, repeated("<DefaultValueItem/>", 100'000)) +
               "</DefaultValues>";
    });
    add(attacks, "90 scopes around different default values", Outcome::Read, [] {
        return "<DefaultValues>" +
               nested("DefaultValueScope", 90,
                      numbered(20'000,
                               [](const QByteArray &i) { return "<DefaultValueItem View='" + i + "'/>"; })) +
               "</DefaultValues>";
    });
    add(
        attacks, "90 columns around 300,000 names", Outcome::Read,
        [] { return nested("Column", 90, repeated("<Name/>", 300'000)); }, true);
}

void addTexts(Attacks &attacks)
{
    constexpr int size = 2'000'000;
    add(attacks, "90 columns around one text", Outcome::Read,
        [] { return nested("Column", 90, columnTexts(textInPieces(size))); });
    add(attacks, "90 columns of a view around one text", Outcome::Read,
        [] { return nested("View", 1, nested("Column", 90, columnTexts(textInPieces(size)))); });
    add(attacks, "90 columns around a text of many pieces", Outcome::Read,
        [] { return nested("Column", 90, columnTexts(repeated("x&a;", size / 4))); });
    add(attacks, "90 columns around the name of a list", Outcome::Read,
        [] { return nested("Column", 90, nested("ValueListName", 1, repeated("x&a;", size / 4))); });
    add(attacks, "90 items around one text", Outcome::Read, [] {
        return nested("ValueList", 1,
                      nested("ValueListItem", 90,
                             "<Captions><TextItem>" + textInPieces(size) + "</TextItem></Captions>"));
    });
    add(attacks, "90 bands around one text", Outcome::Read, [] {
        return legends(
            nested("ClassificationColor", 90,
                   "<TextA><TextB><TextItem>" + textInPieces(size) + "</TextItem></TextB></TextA>"));
    });
    add(attacks, "texts of 30 columns in each other", Outcome::Read, [] {
        return enclosed(30, {"Column", "Caption", "TextItem"}, textInPieces(size));
    });
    add(attacks, "two texts of 19 columns in each other", Outcome::Read, [] {
        return enclosed(19, {"Column", "Caption", "TextItem", "ToolTip", "TextItem"}, textInPieces(size));
    });
    add(attacks, "90 names around one text", Outcome::Read,
        [] { return nested("Name", 90, textInPieces(size)); });
}

} // namespace

Attacks multiplicationAttacks()
{
    Attacks attacks;
    addCounts(attacks);
    addTexts(attacks);
    return attacks;
}
