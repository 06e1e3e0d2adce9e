#include <cstdlib>
#include <iostream>

#include "BillGenerator.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: generate_bill ROWS > bill.csv\n";
        return 2;
    }
    std::ios::sync_with_stdio(false);
    GenerateBill(std::cout, std::strtoul(argv[1], nullptr, 10));
    return std::cout.flush() ? 0 : 1;
}
