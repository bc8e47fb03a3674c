#pragma once

#include "platform/forms/form.h"

/// Name and version of the program, and the works of others that run in it, with their licences.
class AboutBox : public Form
{
    Q_OBJECT

public:
    AboutBox();

protected:
    void Form_Help() override {}
};
