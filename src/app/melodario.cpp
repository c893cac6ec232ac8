#include "app/Main.h"

#include <QApplication>

int main(int argc, char* argv[])
{
    QApplication programa(argc, argv);
    return Funcoes::Main(programa);
}
