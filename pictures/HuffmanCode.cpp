#include "pictures/HuffmanCode.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <numeric>
#include <utility>

namespace pictures {

namespace {

// How deep each symbol lies in the tree of least weight; returns the greatest depth.
int FindDepths(const std::vector<uint32_t>& counts, std::vector<uint8_t>& depths) {
    struct Node {
        uint64_t weight;
        size_t parent;
    };
    std::vector<std::pair<uint32_t, size_t>> leaves;
    for (size_t i = 0; i < counts.size(); ++i) {
        if (counts[i] != 0) leaves.emplace_back(counts[i], i);
    }
    std::sort(leaves.begin(), leaves.end());
    std::vector<Node> nodes;
    nodes.reserve(2 * leaves.size());
    for (const auto& leaf : leaves) nodes.push_back({leaf.first, 0});
    // Leaves and inner nodes are each in order of weight, so the two lightest are at the head of either.
    size_t leaf = 0;
    size_t inner = leaves.size();
    const auto lightest = [&] {
        const bool isLeaf =
            leaf < leaves.size() && (inner == nodes.size() || nodes[leaf].weight <= nodes[inner].weight);
        return isLeaf ? leaf++ : inner++;
    };
    while (nodes.size() < 2 * leaves.size() - 1) {
        const size_t first = lightest();
        const size_t second = lightest();
        nodes[first].parent = nodes[second].parent = nodes.size();
        nodes.push_back({nodes[first].weight + nodes[second].weight, 0});
    }
    std::vector<int> depthOf(nodes.size(), 0);
    int deepest = 0;
    for (size_t i = nodes.size() - 1; i-- > 0;) depthOf[i] = depthOf[nodes[i].parent] + 1;
    for (size_t i = 0; i < leaves.size(); ++i) {
        deepest = std::max(deepest, depthOf[i]);
        depths[leaves[i].second] = static_cast<uint8_t>(depthOf[i]);
    }
    return deepest;
}

uint16_t Reversed(uint32_t code, int length) {
    uint32_t reversed = 0;
    for (int i = 0; i < length; ++i) reversed |= (code >> i & 1) << (length - 1 - i);
    return static_cast<uint16_t>(reversed);
}

}  // namespace

HuffmanCode MakeHuffmanCode(std::vector<uint32_t> counts, int longest) {
    HuffmanCode code{std::vector<uint8_t>(counts.size()), std::vector<uint16_t>(counts.size())};
    // The rarer a symbol the deeper it lies: raised to a least count that nearly always does.
    uint64_t least = std::accumulate(counts.begin(), counts.end(), uint64_t{0}) >> longest;
    do {
        for (uint32_t& count : counts) {
            if (count != 0) count = static_cast<uint32_t>(std::max<uint64_t>(count, least));
        }
        least = 2 * least + 1;
    } while (FindDepths(counts, code.lengths) > longest);
    uint32_t next = 0;
    for (int length = 1; length <= longest; ++length, next <<= 1) {
        for (size_t i = 0; i < counts.size(); ++i) {
            if (code.lengths[i] == length) code.bits[i] = Reversed(next++, length);
        }
    }
    return code;
}

}  // namespace pictures
