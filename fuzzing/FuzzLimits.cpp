// Passes any bytes through the guard to both of Qt's parsers. Their output must be within the limits: a file
// that the guard parses differently could exceed them.

#include "xml/GuardedMarkup_p.h"
#include "xml/XmlLimits_p.h"

#include <QDomDocument>
#include <QXmlStreamReader>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

using namespace Tobrix::Templates;

namespace {

/// The output of a parser.
struct Extent
{
    int depth = 0;
    int attributesOfElement = 0;
    int namespaceDeclarations = 0;
};

void require(const char *parser, const char *what, int value, int limit)
{
    if (value > limit) {
        std::fprintf(stderr, "the guard let %d %s through to the %s parser; the limit is %d\n", value, what,
                     parser, limit);
        std::abort();
    }
}

void requireWithinLimits(const char *parser, const Extent &extent)
{
    require(parser, "levels of nested elements", extent.depth, Limits::depth);
    require(parser, "attributes of an element", extent.attributesOfElement,
            Limits::attributesOfElement + Limits::defaultedAttributes);
    require(parser, "namespace declarations", extent.namespaceDeclarations, Limits::namespaceDeclarations);
}

Extent streamedExtent(QIODevice &file)
{
    Extent extent;
    QXmlStreamReader xml(&file);
    int depth = 0;
    // When a limit is exceeded, the device seems endless to the parser: only the error shows that it has
    // ended.
    while (!xml.hasError() && xml.tokenType() != QXmlStreamReader::EndDocument) {
        const auto token = xml.readNext();
        if (token == QXmlStreamReader::StartElement) {
            extent.depth = std::max(extent.depth, ++depth);
            extent.attributesOfElement = std::max(extent.attributesOfElement, xml.attributes().size());
            extent.namespaceDeclarations += xml.namespaceDeclarations().size();
        } else if (token == QXmlStreamReader::EndElement) {
            --depth;
        }
    }
    return extent;
}

Extent documentExtent(QIODevice &file)
{
    QDomDocument document;
    document.setContent(&file, false);
    Extent extent;
    int depth = 0;
    QDomElement element = document.documentElement();
    while (!element.isNull()) {
        extent.depth = std::max(extent.depth, ++depth);
        extent.attributesOfElement = std::max(extent.attributesOfElement, element.attributes().count());
        QDomElement next = element.firstChildElement();
        while (next.isNull() && !element.isNull()) {
            next = element.nextSiblingElement();
            element = element.parentNode().toElement();
            --depth;
        }
        element = next;
    }
    return extent;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size)
{
    const QByteArray input(reinterpret_cast<const char *>(bytes), static_cast<int>(size));
    GuardedMarkup forStream(input);
    requireWithinLimits("stream", streamedExtent(forStream));
    GuardedMarkup forDom(input);
    requireWithinLimits("document", documentExtent(forDom));
    return 0;
}
