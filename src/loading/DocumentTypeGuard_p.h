#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

namespace Tobrix::Templates {

/// What a document type adds to a document: what its entities come to where they are referred to, and the
/// attributes that elements get by default. Reckons rather too much than too little.
class DocumentTypeGuard
{
public:
    /// What a reference to an entity comes to, with the references inside of it.
    struct Cost
    {
        qint64 characters = 0;
        qint64 references = 0;
        qint64 startTags = 0;
    };

    /// Takes the text of a document type, without "<!DOCTYPE" and ">".
    /// @return what is too much in it, in words; empty when nothing is
    QString read(const QByteArray &documentType);

    bool hasEntities() const { return !m_entities.isEmpty(); }

    /// What a reference comes to; nothing for an entity that is not declared.
    Cost costOf(const QByteArray &entityName);

    /// The attributes that an element gets by default, and their characters, at most.
    qint64 defaultAttributes() const { return m_defaultAttributes; }
    qint64 defaultCharacters() const { return m_defaultCharacters; }

private:
    struct Entity
    {
        QByteArray text;
        Cost cost;
        bool isReckoned = false;
    };

    void readEntities(const QByteArray &documentType);
    Cost reckon(const QByteArray &entityName, int nesting);

    QHash<QByteArray, Entity> m_entities;
    qint64 m_defaultAttributes = 0;
    qint64 m_defaultCharacters = 0;
};

} // namespace Tobrix::Templates
