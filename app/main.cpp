#include "app/startup.h"

int main(int argc, char **argv)
{
    return Halcyra::run(argc, argv);
}
