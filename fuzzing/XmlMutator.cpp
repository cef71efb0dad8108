#include "fuzzing/XmlMutator.h"

#include <QString>
#include <QTextCodec>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <fstream>
#include <iterator>

namespace Tobrix::Fuzzing {

namespace {

using Words = std::vector<std::string>;

/// Whitespace for the two parsers, and characters that only look like it.
const Words whiteSpaces = {" ",        "\n",           "\r\n",     "\r",           "\t",    "\n  ",
                           "\xC2\xA0", "\xEF\xBB\xBF", "\xC2\x85", "\xE2\x80\xA8", "&#32;", "&#10;",
                           "&#13;",    "&#9;",         "&#xA0;",   "\xE3\x80\x80", "\v"};

const Words references = {"&amp;",     "&lt;",   "&gt;",      "&quot;",         "&apos;",
                          "&#65;",     "&#x41;", "&#x1F600;", "&#xFEFF;",       "&#xFFFE;",
                          "&#0;",      "&#x;",   "&unknown;", "&#x110000;",     "&#xD800;",
                          "&amp;amp;", "&",      "&#00065;",  "&#x00000000041;"};

/// Constructs that separate chunks of text.
const Words separators = {"<!---->",
                          "<!-- -->",
                          "<!--a-b-->",
                          "<?p?>",
                          "<?p d?>",
                          "<![CDATA[]]>",
                          "<![CDATA[ ]]>",
                          "<![CDATA[K]]>",
                          "<![CDATA[<a>&amp;]]>",
                          "<![CDATA[\r\n]]>",
                          "<![CDATA[]]]]>",
                          "<!--\r\n-->",
                          "<?xml-stylesheet href=\"a\"?>",
                          "]]>",
                          "<!-- -- -->"};

const Words characters = {"\xC3\xA4",
                          "\xE2\x82\xAC",
                          "\xF0\x9F\x98\x80",
                          "\xEF\xBF\xBE",
                          "\x01",
                          "\x7F",
                          "\xE4",
                          "\xC0\x80",
                          "\xED\xA0\x80",
                          "<",
                          ">",
                          "\"",
                          "'",
                          "]]>",
                          "A",
                          "true",
                          "-",
                          ":"};

const Words declarations = {"<?xml version=\"1.0\"?>",
                            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>",
                            "<?xml version='1.0' encoding='utf-8' standalone='yes'?>",
                            "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>",
                            "<?xml version=\"1.0\" encoding=\"ISO-8859-15\"?>",
                            "<?xml version=\"1.0\" encoding=\"Windows-1252\"?>",
                            "<?xml version=\"1.0\" encoding=\"windows-1252\"?>",
                            "<?xml version=\"1.0\" encoding=\"US-ASCII\"?>",
                            "<?xml version=\"1.0\" encoding=\"UTF-16\"?>",
                            "<?xml version=\"1.0\" encoding=\"unknown\"?>",
                            "<?xml version=\"1.0\" encoding=\"\"?>",
                            "<?xml version=\"1.0\" encoding=\"UTF-8\" encoding=\"ISO-8859-1\"?>",
                            "<?xml version=\"1.1\"?>",
                            "<?xml encoding=\"UTF-8\" version=\"1.0\"?>",
                            "<?xml\tversion = \"1.0\"\r\n?>",
                            "<?xml version=\"1.0\"encoding=\"UTF-8\"?>",
                            "<?xml-model encoding=\"ISO-8859-1\"?>",
                            "<!DOCTYPE T>",
                            "<!DOCTYPE T [<!ENTITY unknown \"K\">]>",
                            "\xEF\xBB\xBF"};

const Words namespaces = {"xmlns=\"u\"",
                          "xmlns:x=\"u\"",
                          "xmlns:x=\"\"",
                          "xmlns:xml=\"http://www.w3.org/XML/1998/namespace\"",
                          "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\"",
                          "xsi:noNamespaceSchemaLocation=\"a.xsd\"",
                          "xml:space=\"preserve\"",
                          "x:a=\"1\"",
                          "y:a=\"1\"",
                          "xmlns:=\"u\"",
                          "x:y:z=\"1\""};

const Words prefixes = {"x:", "y:", "xml:", "xmlns:", ":"};

bool isNameCharacter(char c)
{
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_' || c == ':' || c == '-' || c == '.' ||
           c < 0;
}

bool isStartTag(const std::string &token)
{
    return token.size() > 2 && token.front() == '<' && isNameCharacter(token[1]);
}

bool isEndTag(const std::string &token)
{
    return token.size() > 2 && token.compare(0, 2, "</") == 0;
}

bool isEmptyElement(const std::string &token)
{
    return isStartTag(token) && token[token.size() - 2] == '/';
}

std::size_t endOfName(const std::string &token, std::size_t start)
{
    while (start < token.size() && isNameCharacter(token[start])) {
        ++start;
    }
    return start;
}

/// The place after a construct of markup that begins at a place.
std::size_t endOfMarkup(std::string_view document, std::size_t start)
{
    const auto after = [&](const char *terminator, std::size_t size) {
        const auto end = document.find(terminator, start);
        return end == std::string_view::npos ? document.size() : end + size;
    };
    if (document.compare(start, 4, "<!--") == 0) {
        return after("-->", 3);
    }
    if (document.compare(start, 9, "<![CDATA[") == 0) {
        return after("]]>", 3);
    }
    return document.compare(start, 2, "<?") == 0 ? after("?>", 2) : after(">", 1);
}

/// The quoted text in a line of a dictionary, with escapes resolved.
std::string wordOf(const std::string &line)
{
    std::string word;
    const auto end = line.rfind('"');
    for (auto at = line.find('"') + 1; at < end; ++at) {
        if (line[at] == '\\' && line[at + 1] == 'x') {
            word += static_cast<char>(std::stoi(line.substr(at + 2, 2), nullptr, 16));
            at += 3;
        } else {
            at += line[at] == '\\' ? 1 : 0;
            word += line[at];
        }
    }
    return word;
}

QTextCodec *markedCodecOf(std::string_view document)
{
    const auto starts = [&](std::string_view mark) { return document.substr(0, mark.size()) == mark; };
    if (starts("\xFF\xFE") || starts("\xFE\xFF")) {
        return QTextCodec::codecForName("UTF-16");
    }
    return nullptr;
}

} // namespace

XmlMutator::XmlMutator(const char *dictionary)
{
    std::ifstream file(dictionary);
    std::string line;
    while (std::getline(file, line)) {
        if (line.empty() || line.front() != '"') {
            continue;
        }
        const std::string word = wordOf(line);
        if (isStartTag(word)) {
            m_names.push_back(word.substr(1, endOfName(word, 1) - 1));
        } else if (word.front() == ' ' && word.back() == '"') {
            m_attributes.push_back(word.substr(1, endOfName(word, 1) - 1));
        } else if (word.find_first_of("<>") == std::string::npos) {
            m_values.push_back(word);
        }
    }
    if (m_names.empty() || m_attributes.empty() || m_values.empty()) {
        std::abort();
    }
}

std::string XmlMutator::mutate(std::string_view document, std::uint32_t seed)
{
    m_random.seed(seed);
    if (QTextCodec *codec = markedCodecOf(document)) {
        const std::string decoded =
            codec->toUnicode(document.data(), static_cast<int>(document.size())).toStdString();
        split(decoded);
    } else {
        split(document);
    }
    for (auto changes = below(4) + 1; changes > 0; --changes) {
        change();
    }
    std::string mutated;
    for (const auto &token : m_tokens) {
        mutated += token;
    }
    return encode(mutated);
}

std::string XmlMutator::anyText()
{
    switch (below(6)) {
    case 0:
        return anyOf(whiteSpaces);
    case 1:
        return anyOf(references);
    case 2:
        return anyOf(characters);
    case 3:
        return anyOf(whiteSpaces) + anyOf(whiteSpaces);
    case 4:
        return anyOf(m_values) + anyOf(references);
    default:
        return anyOf(m_values);
    }
}

std::string XmlMutator::anyAttribute()
{
    const char quote = below(2) == 0 ? '"' : '\'';
    return below(3) == 0 ? anyOf(namespaces) : anyOf(m_attributes) + "=" + quote + anyText() + quote;
}

/// Splits a document into tokens of markup and text.
void XmlMutator::split(std::string_view document)
{
    m_tokens.clear();
    std::size_t at = 0;
    while (at < document.size()) {
        const std::size_t end = document[at] == '<' ? endOfMarkup(document, at)
                                                    : std::min(document.find('<', at), document.size());
        m_tokens.emplace_back(document.substr(at, end - at));
        at = end;
    }
}

XmlMutator::Words XmlMutator::take(std::size_t from, std::size_t end)
{
    const auto first = m_tokens.begin() + static_cast<std::ptrdiff_t>(from);
    const auto last = m_tokens.begin() + static_cast<std::ptrdiff_t>(end);
    Words taken(std::make_move_iterator(first), std::make_move_iterator(last));
    m_tokens.erase(first, last);
    return taken;
}

void XmlMutator::insert(const Words &tokens)
{
    m_tokens.insert(m_tokens.begin() + static_cast<std::ptrdiff_t>(below(m_tokens.size() + 1)),
                    tokens.begin(), tokens.end());
}

/// The token after an element, or after any other token.
std::size_t XmlMutator::endOfElement(std::size_t start) const
{
    int depth = 0;
    std::size_t at = start;
    do {
        const std::string &token = m_tokens[at++];
        depth += isStartTag(token) && !isEmptyElement(token) ? 1 : isEndTag(token) ? -1 : 0;
    } while (depth > 0 && at < m_tokens.size());
    return at;
}

/// The next start tag; the number of tokens when there is none.
std::size_t XmlMutator::anyStartTag()
{
    const std::size_t first = anyToken();
    for (std::size_t i = 0; i < m_tokens.size(); ++i) {
        const std::size_t at = (first + i) % m_tokens.size();
        if (isStartTag(m_tokens[at])) {
            return at;
        }
    }
    return m_tokens.size();
}

void XmlMutator::change()
{
    if (m_tokens.empty()) {
        m_tokens = {"<" + anyOf(m_names) + "/>"};
    }
    switch (below(16)) {
    case 0:
    case 1:
        return moveTokens(true);
    case 2:
        return moveTokens(false);
    case 3: {
        const std::size_t at = anyToken();
        take(at, endOfElement(at));
        return;
    }
    case 4:
    case 5:
    case 6:
    case 7:
        return changeTag();
    case 8:
        return renameElement();
    case 9:
        return toggleEmptyElement();
    case 10:
        return changeProlog();
    case 11: {
        const std::string &name = anyOf(m_names);
        return insert({"<" + name + ">", anyText(), "</" + name + ">"});
    }
    case 12:
    case 13:
        return insert({below(2) == 0 ? anyOf(separators) : anyText()});
    default:
        return changeText();
    }
}

/// Copies or moves an element or another token to another place.
void XmlMutator::moveTokens(bool isCopy)
{
    const std::size_t from = anyToken();
    const Words moved = take(from, endOfElement(from));
    if (isCopy) {
        m_tokens.insert(m_tokens.begin() + static_cast<std::ptrdiff_t>(from), moved.begin(), moved.end());
    }
    insert(moved);
}

void XmlMutator::changeTag()
{
    const std::size_t at = anyStartTag();
    if (at < m_tokens.size()) {
        changeAttributes(m_tokens[at]);
    }
}

/// Inserts, repeats, empties or deletes an attribute, or inserts something into a tag or value.
void XmlMutator::changeAttributes(std::string &tag)
{
    const std::size_t end = tag.size() - (isEmptyElement(tag) ? 2 : 1);
    Words attributes;
    std::vector<std::size_t> places;
    for (std::size_t at = endOfName(tag, 1); at < end;) {
        const std::size_t quote = tag.find_first_of("\"'", at);
        const std::size_t close = quote < end ? tag.find(tag[quote], quote + 1) : std::string::npos;
        if (close == std::string::npos || close >= end) {
            break;
        }
        places.push_back(at);
        attributes.push_back(tag.substr(at, close + 1 - at));
        at = close + 1;
    }
    const std::size_t chosen = below(attributes.size());
    const std::size_t kind = attributes.empty() ? 0 : below(8);
    if (kind <= 1) {
        tag.insert(end, " " + anyAttribute());
    } else if (kind == 2) {
        tag.insert(end, attributes[chosen]);
    } else if (kind == 3) {
        tag.erase(places[chosen], attributes[chosen].size());
    } else if (kind == 4) {
        tag.insert(below(tag.size()), anyOf(whiteSpaces));
    } else if (kind == 5) {
        const std::size_t value = attributes[chosen].find_first_of("\"'") + 1;
        tag.replace(places[chosen] + value, attributes[chosen].size() - value - 1,
                    below(4) == 0 ? "" : anyText());
    } else {
        const std::size_t value = attributes[chosen].find_first_of("\"'") + 1;
        tag.insert(places[chosen] + value + below(attributes[chosen].size() - value), anyText());
    }
}

void XmlMutator::renameElement()
{
    const std::size_t at = anyStartTag();
    if (at == m_tokens.size()) {
        return;
    }
    std::string &start = m_tokens[at];
    const std::string old = start.substr(1, endOfName(start, 1) - 1);
    const std::string name = below(3) == 0 ? anyOf(prefixes) + old : anyOf(m_names);
    const bool isEmpty = isEmptyElement(start);
    start.replace(1, old.size(), name);
    const std::size_t end = endOfElement(at) - 1;
    if (!isEmpty && isEndTag(m_tokens[end])) {
        m_tokens[end] = "</" + name + (below(8) == 0 ? anyOf(whiteSpaces) : "") + ">";
    }
}

/// Makes an element empty, with one tag or two.
void XmlMutator::toggleEmptyElement()
{
    const std::size_t at = anyStartTag();
    if (at == m_tokens.size()) {
        return;
    }
    std::string &start = m_tokens[at];
    if (isEmptyElement(start)) {
        start.erase(start.size() - 2, 1);
        start += "</" + start.substr(1, endOfName(start, 1) - 1) + ">";
        return;
    }
    const std::size_t end = endOfElement(at);
    start.insert(start.size() - 1, "/");
    take(at + 1, end);
}

/// Inserts something into a token, most often one that is no tag.
void XmlMutator::changeText()
{
    std::string &token = m_tokens[anyToken()];
    if (token.front() == '<' && below(4) != 0) {
        return;
    }
    if (below(3) == 0) {
        token = anyText();
        return;
    }
    token.insert(below(token.size() + 1), below(3) == 0 ? anyOf(separators) : anyText());
}

void XmlMutator::changeProlog()
{
    if (m_tokens.front().compare(0, 2, "<?") == 0) {
        m_tokens.erase(m_tokens.begin());
    }
    if (below(4) != 0) {
        m_tokens.insert(m_tokens.begin(), anyOf(declarations));
    }
    if (below(6) == 0) {
        m_tokens.insert(m_tokens.begin(), anyOf(below(2) == 0 ? whiteSpaces : separators));
    }
    if (below(8) == 0) {
        m_tokens.push_back(anyOf(below(2) == 0 ? whiteSpaces : separators));
    }
}

/// Encodes a document as it declares, or occasionally in another encoding.
std::string XmlMutator::encode(const std::string &document)
{
    const std::size_t declared = document.find("encoding=");
    const char *name = nullptr;
    if (below(12) == 0) {
        name = below(2) == 0 ? "UTF-16" : "UTF-16BE";
    } else if (declared < 48 && below(2) == 0) {
        name = document.compare(declared + 10, 11, "ISO-8859-15") == 0   ? "ISO-8859-15"
               : document.compare(declared + 10, 10, "ISO-8859-1") == 0  ? "ISO-8859-1"
               : document.compare(declared + 11, 11, "indows-1252") == 0 ? "windows-1252"
                                                                         : nullptr;
    }
    if (!name) {
        return document;
    }
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    QString text = QString::fromStdString(document);
    if (name[0] == 'U' && below(8) != 0) {
        text.prepend(QChar(QChar::ByteOrderMark));
    }
    const QTextCodec *codec = QTextCodec::codecForName(name[0] == 'U' && name[6] == 0 ? "UTF-16LE" : name);
    return codec->fromUnicode(text.constData(), text.size(), &state).toStdString();
}

} // namespace Tobrix::Fuzzing
