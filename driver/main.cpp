// velluto-driver: the program without a screen, driven by one command a line.
#include "driver/Commands.h"
#include "platform/machine/Console.h"

#include <iostream>
#include <string>

int main()
{
    velluto::PrepareStreams();
    std::ios::sync_with_stdio(false);
    velluto::driver::Session session;
    std::string line;
    while (std::getline(std::cin, line)) {
        if (const auto answer = Answer(session, line)) {
            std::cout << *answer << '\n' << std::flush;
        }
    }
    return 0;
}
