#include "host/app/application.h"

int main(int argc, char *argv[])
{
    return runHost(argc, argv);
}
