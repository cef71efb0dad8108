#pragma once

#include "format_legacy/LegacyFields_p.h"
#include "format_legacy/LegacyXmlStream_p.h"
#include "rawdata/CTemplateDataConverter.h"
#include "rawdata/PlainNumbers_p.h"
#include "rawdata/TextPool_p.h"

#include <QStringRef>
#include <QXmlStreamReader>

#include <type_traits>
#include <utility>
#include <variant>

namespace Tobrix::Templates {

/// Which of an element's texts count. The sections differ in it, and files exist that rely on each.
enum class TextRule {
    /// The first text after a start tag, even one behind the element's end: an empty element takes the white
    /// space behind it.
    FirstAfterStartTag,
    /// Only a text that directly follows a start tag.
    DirectlyAfterStartTag,
    /// Every text within the element; the last one stays.
    EveryWithinElement
};

/// Whether a stream has come to an end with what it met last, be it the document's or an error.
inline bool isEnd(QXmlStreamReader::TokenType met)
{
    return met == QXmlStreamReader::EndDocument || met == QXmlStreamReader::Invalid;
}

/// Walks over one section, from its start tag to its end tag.
/// @param tokenOf turns element names into the section's tokens, 0 for unknown ones
/// @param onStart is called with the token of every start tag, the section's own among them
/// @param onText is called with the token of the element that the current text belongs to, never with 0
/// @return false when the document ends, or is at fault, within the section
template <typename Token, typename OnStart, typename OnText>
bool walkSection(QXmlStreamReader &xml, Token (*tokenOf)(const QStringRef &), TextRule rule, OnStart onStart,
                 OnText onText)
{
    int depth = 0;
    Token token{};
    for (auto met = xml.tokenType(); !isEnd(met); met = xml.readNext()) {
        switch (met) {
        case QXmlStreamReader::StartElement:
            ++depth;
            token = tokenOf(xml.name());
            onStart(token);
            break;
        case QXmlStreamReader::Characters:
            if (token != Token{}) {
                onText(token);
            }
            if (rule != TextRule::EveryWithinElement) {
                token = Token{};
            }
            break;
        case QXmlStreamReader::EndElement:
            if (--depth == 0) {
                return true;
            }
            if (rule != TextRule::FirstAfterStartTag) {
                token = Token{};
            }
            break;
        default:
            if (rule == TextRule::DirectlyAfterStartTag) {
                token = Token{};
            }
            break;
        }
    }
    return false;
}

/// A text of its own: QStringRef::toString() may share the XML reader's whole buffer and keep it alive.
inline QString ownText(const QStringRef &text)
{
    return text.isNull() ? QString() : QString(text.data(), text.size());
}

/// Turns the text of an element into a value of the kind that its field has.
template <typename Value>
Value converted(const QStringRef &text)
{
    if constexpr (std::is_same_v<Value, QString>) {
        return ownText(text);
    } else if constexpr (std::is_same_v<Value, bool>) {
        return CTemplateDataConverter::stringToBool(text);
    } else if constexpr (std::is_same_v<Value, double>) {
        return toDecimalDouble(text);
    } else {
        return static_cast<Value>(toDecimalInt(text));
    }
}

/// Stores the text of one element in a record, as the kind of the target says.
template <typename Record>
class TextTarget
{
public:
    TextTarget(const QStringRef &text, Record &record, TextPool &repeatedTexts)
        : m_text(text), m_record(record), m_repeatedTexts(repeatedTexts)
    {
    }

    void operator()(std::monostate) const {}

    template <typename Target>
    void operator()(RepeatedText<Target> repeated) const
    {
        store(repeated.target, m_repeatedTexts.shared(m_text));
    }

    template <typename Value, typename Owner>
    void operator()(Value Owner::*field) const
    {
        store(field, converted<Value>(m_text));
    }

    template <typename Value, typename Owner>
    void operator()(void (Owner::*setter)(Value)) const
    {
        store(setter, converted<std::decay_t<Value>>(m_text));
    }

private:
    template <typename Value, typename Owner>
    void store(Value Owner::*field, const Value &value) const
    {
        m_record.*field = value;
    }

    template <typename Value, typename Owner>
    void store(void (Owner::*setter)(Value), const std::decay_t<Value> &value) const
    {
        (m_record.*setter)(value);
    }

    const QStringRef m_text;
    Record &m_record;
    TextPool &m_repeatedTexts;
};

/// Stores the current text of the stream, which belongs to an element, where the section's field table says.
template <typename Fields, typename Token, typename Record>
void storeText(const Fields &fields, Token token, LegacyXmlStream &xml, Record &record)
{
    std::visit(TextTarget<Record>(xml.text(), record, xml.repeatedTexts()), fields[token - 1].target);
}

} // namespace Tobrix::Templates
