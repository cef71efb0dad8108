#pragma once

#include "Markup.h"

#include "rawdata/TemplateLimits_p.h"
#include "xml/XmlLimits_p.h"

#include <functional>
#include <vector>

/// What must come of a document.
enum class Outcome {
    /// A template with what the document holds.
    Read,
    /// Nothing, as for every document past a limit: no template of the legacy format, and an empty one of the
    /// current format.
    Refused,
    /// What stands before the fault in the current format, no template of the legacy format.
    Broken,
    /// Whatever it may be: only what it costs matters.
    Bounded
};

namespace Limits = Tobrix::Templates::Limits;

/// The root is an element as well.
constexpr int deepestBelowRoot = Limits::depth - 1;

/// A document that is meant to do harm.
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

/// Elements, parentheses and document types in each other.
Attacks nestingAttacks();
/// Entities, and what else a document type can do.
Attacks documentTypeAttacks();
/// Attributes and namespaces.
Attacks attributeAttacks();
/// Much of everything.
Attacks volumeAttacks();
/// Containers in each other, which share what they hold.
Attacks multiplicationAttacks();
/// Encodings, declared and not.
Attacks encodingAttacks();
/// Texts that fall on one place of a hash table.
Attacks collisionAttacks();
