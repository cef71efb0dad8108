#pragma once

#include "Markup.h"

#include "rawdata/TemplateLimits_p.h"
#include "xml/XmlLimits_p.h"

#include <functional>
#include <vector>

/// The expected result of a document.
enum class Outcome {
    /// A template with the content of the document.
    Read,
    /// A document over a limit: no template in the legacy format, an empty one in the current format.
    Refused,
    /// What precedes the fault in the current format, no template in the legacy format.
    Broken,
    /// Any: only time and memory matter.
    Bounded
};

namespace Limits = Tobrix::Templates::Limits;

/// The root is an element as well.
constexpr int deepestBelowRoot = Limits::depth - 1;

/// A document that attacks the library.
struct Attack
{
    QByteArray name;
    Outcome outcome;
    std::function<QByteArray()> document;
    Format format;
};

using Attacks = std::vector<Attack>;

/// Adds an attack once for each format.
void addForBoth(Attacks &attacks, const QByteArray &name, Outcome outcome,
                const std::function<QByteArray(Format)> &document);

/// Nested elements, parentheses and document types.
Attacks nestingAttacks();
/// Entities and other declarations of a document type.
Attacks documentTypeAttacks();
/// Attributes and namespaces.
Attacks attributeAttacks();
/// Large documents.
Attacks volumeAttacks();
/// Nested containers, which share their content.
Attacks multiplicationAttacks();
/// Encodings, declared or not.
Attacks encodingAttacks();
/// Texts with colliding hashes.
Attacks collisionAttacks();
