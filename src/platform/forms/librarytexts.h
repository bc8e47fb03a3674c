#pragma once

#include <QTranslator>

/// The window library's own texts in the program's language, whatever the workstation's: the menus of boxes
/// and scroll bars, the file dialog, standard buttons, the names of keys, what is read out to a blind user.
/// The program's own texts are Portuguese in the source and never come here.
class LibraryTexts : public QTranslator
{
public:
    using QTranslator::QTranslator;

    /// Null for what it does not know, so that the next translator is asked.
    QString translate(const char* context, const char* source, const char* note, int number) const override;
    bool isEmpty() const override { return false; }
};
