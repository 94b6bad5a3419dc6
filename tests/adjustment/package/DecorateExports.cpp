// SPDX-License-Identifier: GPL-3.0-or-later
#include <elf.h>

#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

// Gives the exports of a shared library their decorated names: "_start.4" becomes "_start@4", and so on. The
// linkers of this host take an "@" for the mark of a symbol's version, so the names are changed in the
// finished library, and its table of hashes (of the old kind) is made anew for them.
namespace {

constexpr std::string_view Names[][2] = {
    {"_start.4", "_start@4"}, {"_go.4", "_go@4"}, {"_stop.0", "_stop@0"}};

template <class T>
T* At(std::vector<char>& file, std::size_t offset) {
    return reinterpret_cast<T*>(file.data() + offset);
}

std::size_t HashOf(const char* name) {
    std::size_t hash = 0;
    for (; *name != 0; ++name) {
        hash = (hash << 4) + static_cast<unsigned char>(*name);
        const std::size_t high = hash & 0xF0000000U;
        hash = (hash ^ (high >> 24)) & ~high;
    }
    return hash;
}

const Elf64_Shdr* Section(std::vector<char>& file, Elf64_Word type) {
    const auto* header = At<Elf64_Ehdr>(file, 0);
    const auto* sections = At<Elf64_Shdr>(file, header->e_shoff);
    for (int i = 0; i < header->e_shnum; ++i)
        if (sections[i].sh_type == type)
            return &sections[i];
    return nullptr;
}

bool Rename(char* name) {
    for (const auto& pair : Names)
        if (pair[0] == name) {
            std::memcpy(name, pair[1].data(), pair[1].size());
            return true;
        }
    return false;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2)
        return 1;
    std::ifstream in(argv[1], std::ios::binary);
    std::vector<char> file{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    in.close();
    const Elf64_Shdr* symbolTable = file.empty() ? nullptr : Section(file, SHT_DYNSYM);
    const Elf64_Shdr* hashTable = file.empty() ? nullptr : Section(file, SHT_HASH);
    if (symbolTable == nullptr || hashTable == nullptr) {
        std::fprintf(stderr, "%s: no exports, or no table of hashes\n", argv[1]);
        return 1;
    }
    const auto* sections = At<Elf64_Shdr>(file, At<Elf64_Ehdr>(file, 0)->e_shoff);
    const std::size_t names = sections[symbolTable->sh_link].sh_offset;
    const auto* symbols = At<Elf64_Sym>(file, symbolTable->sh_offset);
    auto* table = At<Elf64_Word>(file, hashTable->sh_offset);
    const Elf64_Word buckets = table[0];
    const Elf64_Word count = table[1];
    Elf64_Word* const heads = table + 2;
    Elf64_Word* const chain = heads + buckets;
    std::memset(heads, 0, (buckets + count) * sizeof(Elf64_Word));
    int renamed = 0;
    for (Elf64_Word i = 1; i < count; ++i) {
        char* const name = At<char>(file, names + symbols[i].st_name);
        renamed += Rename(name) ? 1 : 0;
        Elf64_Word& head = heads[HashOf(name) % buckets];
        chain[i] = head;
        head = i;
    }
    std::ofstream(argv[1], std::ios::binary).write(file.data(), static_cast<std::streamsize>(file.size()));
    return renamed == 3 ? 0 : 1;
}
