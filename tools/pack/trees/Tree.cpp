#include "pack/trees/Tree.h"

#include <climits>
#include <list>

Resolved resolve(const Tree& tree, const std::string& name)
{
    // What the system follows; more would only let a hostile archive take long.
    constexpr int mostLinks = 40;
    constexpr std::size_t longestLinks = PATH_MAX;

    const Path whole(name);
    std::list<Path> way(whole.begin(), whole.end());
    Path reached;
    int links = 0;
    std::size_t lengthOfLinks = 0;
    while (!way.empty()) {
        const Path step = way.front();
        way.pop_front();
        if (step.is_absolute() || (step == ".." && reached.empty()))
            return {Resolved::End::Outside, {}};
        if (step.empty() || step == ".")
            continue;
        if (step == "..") {
            reached = reached.parent_path();
            continue;
        }
        const Path next = reached / step;
        const auto node = tree.nodes.find(next.string());
        if (node == tree.nodes.end()) {
            // The way may lead out behind what is missing.
            Path behind = next;
            for (const Path& later : way)
                behind /= later;
            const bool isOutside = *behind.lexically_normal().begin() == "..";
            return {isOutside ? Resolved::End::Outside : Resolved::End::Missing, next.string()};
        }
        if (node->second.kind != TreeNode::Kind::Link) {
            reached = next;
            continue;
        }
        lengthOfLinks += node->second.target.size();
        if (++links > mostLinks || lengthOfLinks > longestLinks)
            return {Resolved::End::Missing, next.string()};
        const Path target(node->second.target);
        way.insert(way.begin(), target.begin(), target.end());
    }
    return {Resolved::End::Found, reached.string()};
}
