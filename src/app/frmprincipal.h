#pragma once

#include "app/core/menu.h"
#include "layout/autoresize.h"
#include "platform/forms/form.h"

#include <QHash>
#include <memory>

class QAction;
class QMenu;
class QMenuBar;

namespace Ui {
class frmPrincipal;
}

/// The main window: it starts the program, forces a login, and is then a menu that opens one modal screen at
/// a time. It opens maximised, and from the second start on as the user of the workstation left it.
class frmPrincipal : public Form
{
    Q_OBJECT

public:
    frmPrincipal();
    ~frmPrincipal() override;

    /// Shows a text on the large sign in the middle and paints the window.
    void mostraSituacao(const QString& texto);
    /// Panel 3, the user.
    void mostraUsuario(const QString& texto);

    QWidget* clientArea() override;
    QSize openingSize() const override;

protected:
    void Form_Load() override;
    void Form_Activate() override;
    void Form_Escape() override {}
    QString escapeHelp() const override { return {}; }
    void Form_Unload() override;
    /// The description of the menu entry under the pointer or the keyboard's mark.
    bool event(QEvent* event) override;
    /// The same for an entry under the pointer that is not to be opened: no menu makes it its current one.
    bool eventFilter(QObject* menu, QEvent* event) override;

private:
    void wire();
    void buildMenu();
    void mostraPermissao(QAction& action, const Menu::Entry& entry);
    void retomaTamanho();
    void guardaTamanho();
    void mnuoff_Click();
    void mnuupdate_Click();
    void CarregaConfiguracao();
    void pedeLogin();

    std::unique_ptr<Ui::frmPrincipal> ui;
    QMenuBar* menuBar_ = nullptr;
    QHash<QString, QAction*> actions_; ///< by the entry's name
    AutoResize Resize{*this};
};
