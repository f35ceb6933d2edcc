// Writes the command line that it is started with into the file that COMMAND_RECORD names,
// a line each time.

#include <windows.h>

#include <fstream>

int main()
{
    char sFile[1024] = "";
    ::GetEnvironmentVariableA("COMMAND_RECORD", sFile, sizeof sFile);
    std::ofstream(sFile, std::ios::binary | std::ios::app) << ::GetCommandLineA() << "\n";
}
