#pragma once

#include "format_legacy/LegacyFormat_p.h"

#include <QStringRef>
#include <QXmlStreamReader>

namespace Tobrix::Templates {

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

} // namespace Tobrix::Templates
