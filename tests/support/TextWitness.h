#pragma once

#include <QString>

/// A text that knows whether anybody else holds it. Given to an object, it tells whether the object still
/// exists.
class TextWitness
{
public:
    explicit TextWitness(const QString &text = QStringLiteral("witness")) : m_text(text) { m_text.detach(); }

    QString text() const { return m_text; }
    bool isHeld() const { return !m_text.isDetached(); }

private:
    QString m_text;
};
