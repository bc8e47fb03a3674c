#include <QApplication>
#include <QLineEdit>
#include <QTimer>
#include <QVBoxLayout>

/// The least that a program with a window does: two boxes in the library's own look, shown once.
int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QWidget window;
    auto* column = new QVBoxLayout(&window);
    column->addWidget(new QLineEdit);
    column->addWidget(new QLineEdit);
    window.show();
    QTimer::singleShot(0, &application, &QApplication::quit);
    return QApplication::exec();
}
