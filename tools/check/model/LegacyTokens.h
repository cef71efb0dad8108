#pragma once

#include "xml/XmlTree_p.h"

#include "format_legacy/CTemplateTokenizer.h"

#include <QStringRef>

#include <vector>

namespace Tobrix::Tools {

/// The token of a container or section; 0 for any other element.
inline CTemplateTokenizer::TemplateToken templateTokenOf(const Templates::XmlElement &element)
{
    const QString name = element.name();
    return CTemplateTokenizer::stringToTemplateToken(QStringRef(&name));
}

/// The tokens of a document's names in one section. Looks each name up once: a document has few names, each
/// many times.
class SectionTokens
{
public:
    template <typename Token>
    SectionTokens(const Templates::XmlTree &document, Token (*tokenOf)(const QStringRef &))
    {
        for (const auto &name : document.names()) {
            m_tokens.push_back(tokenOf(QStringRef(&name)));
        }
    }

    int of(const Templates::XmlElement &element) const
    {
        return m_tokens[static_cast<std::size_t>(element.nameNumber())];
    }

private:
    std::vector<int> m_tokens; // by the numbers of names
};

} // namespace Tobrix::Tools
