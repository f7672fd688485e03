// fuzz_seeds FOLDER: writes what each target begins with, a file an input in a folder a target.
#include <filesystem>
#include <fstream>
#include <iostream>

#include "target.h"

int main(int count, char** arguments) {
    if (count != 2) {
        std::cerr << "fuzz_seeds FOLDER\n";
        return 2;
    }
    for (const zv::fuzz::Target& target : zv::fuzz::Targets()) {
        const std::filesystem::path folder = std::filesystem::path(arguments[1]) / target.name;
        std::filesystem::create_directories(folder);
        int number = 0;
        for (const std::string& seed : target.seeds()) {
            std::ofstream stream(folder / ("seed-" + std::to_string(number++)), std::ios::binary);
            stream << seed;
            stream.close();
            if (!stream) {
                std::cerr << "a seed of " << target.name << " cannot be written\n";
                return 1;
            }
        }
    }
    return 0;
}
