#include "xml/XmlRefusal_p.h"

#include <cstddef>
#include <iterator>

namespace Tobrix::Templates {

QLatin1String wordsFor(XmlRefusal refusal)
{
    static const QLatin1String words[] = {
        QLatin1String("none"),
        QLatin1String("Qt's parser is wanted"),
        QLatin1String("no element"),
        QLatin1String("an XML declaration of unusual form"),
        QLatin1String("an encoding that only Qt decodes"),
        QLatin1String("invalid bytes"),
        QLatin1String("a character that XML does not allow"),
        QLatin1String("a byte order mark inside of the text"),
        QLatin1String("a document type"),
        QLatin1String("a limit"),
        QLatin1String("a name beyond ASCII, or none"),
        QLatin1String("a tag that is not well-formed"),
        QLatin1String("a repeated attribute"),
        QLatin1String("a namespace"),
        QLatin1String("a reference to an entity or to an unusual character"),
        QLatin1String("markup that is not well-formed, or unusual"),
        QLatin1String("nesting that is not well-formed"),
        QLatin1String("more names than a template has"),
    };
    static_assert(std::size(words) == static_cast<std::size_t>(XmlRefusal::Count), "a word for each");
    return words[static_cast<std::size_t>(refusal)];
}

} // namespace Tobrix::Templates
