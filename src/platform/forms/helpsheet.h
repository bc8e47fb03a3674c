#pragma once

#include "platform/forms/form.h"

/// The keys of a screen on one sheet, with a way to the box about the program.
class HelpSheet : public Form
{
    Q_OBJECT

public:
    HelpSheet(const QString& screen, const QList<HelpSection>& sections);

    QSize openingSize() const override;

protected:
    void Form_Help() override {}

private:
    void about();

    QWidget* page_;
};
