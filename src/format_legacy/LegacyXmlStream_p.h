#pragma once

#include "rawdata/TextPool_p.h"

#include <QXmlStreamReader>

namespace Tobrix::Templates {

/// The XML stream of one legacy file, with the texts that the file is likely to repeat.
class LegacyXmlStream : public QXmlStreamReader
{
public:
    /// Starts on a file. What was kept of the one before is forgotten.
    void start(QIODevice *file)
    {
        m_repeatedTexts.clear();
        setDevice(file);
    }

    TextPool &repeatedTexts() { return m_repeatedTexts; }

private:
    TextPool m_repeatedTexts;
};

} // namespace Tobrix::Templates
