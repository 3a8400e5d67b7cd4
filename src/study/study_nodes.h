// The nodes of a study file, read with what is wrong told by its line. Callers: the study file. The one place that
// knows toml++.
#pragma once
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

#define TOML_HEADER_ONLY 1
// It asserts that a table's name begins as one, and says a few lines below what is wrong where it does not: a file is
// no reason to stop the program.
#define TOML_ASSERT(expr) static_cast<void>(0)
#include <toml++/toml.h>

#include "base/runtime_fault.h"
#include "design/number_table.h"
#include "platform/files.h"
#include "study/study_characters.h"

namespace zirvo::study {

using design::FileError;

/// What does not read is thrown as FileError.
class StudyNodes {
protected:
    explicit StudyNodes(const std::string& file) : file_(file) {}

    [[noreturn]] void Fail(long long line, std::string reason) const {
        throw FileError{file_, line, std::move(reason)};
    }

    [[noreturn]] void Fail(const toml::node& node, std::string reason) const { Fail(LineOf(node), std::move(reason)); }

    static long long LineOf(const toml::node& node) { return node.source().begin.line; }

    std::string BytesOf(const std::string& path, long long line) const {
        try {
            return ReadFileBytes(path);
        } catch (const RuntimeFault& caught) {
            if (line > 0) {
                Fail(line, path + " cannot be read: " + caught.what());
            }
            throw FileError{path, 0, std::string("cannot be read: ") + caught.what()};
        }
    }

    toml::table Parse(const std::string& bytes) const {
        if (const auto line = LineOfStrangeCharacter(bytes)) {
            Fail(*line, "a character beyond ASCII stands outside quotes and comments");
        }
        try {
            return toml::parse(bytes);
        } catch (const toml::parse_error& failure) {
            Fail(failure.source().begin.line, std::string(failure.description()) + " (texts stand in quotes)");
        }
    }

    void AllowKeys(const toml::table& table, std::initializer_list<std::string_view> allowed) const {
        for (const auto& [key, node] : table) {
            if (std::find(allowed.begin(), allowed.end(), key.str()) == allowed.end()) {
                std::string names;
                for (const std::string_view name : allowed) {
                    names.append(names.empty() ? "" : ", ").append(name);
                }
                Fail(key.source().begin.line, std::string(key.str()) + ": is no key here; there are " + names);
            }
        }
    }

    /// The node of a key that must be there.
    const toml::node& Required(const toml::table& table, std::string_view key) const {
        const toml::node* node = table.get(key);
        if (node == nullptr) {
            Fail(std::max(1LL, LineOf(table)), std::string(key) + ": is missing");
        }
        return *node;
    }

    std::string TextOf(const toml::table& table, std::string_view key) const {
        const toml::node& node = Required(table, key);
        if (!node.is_string()) {
            Fail(node, std::string(key) + ": must be a text in quotes");
        }
        return std::string(node.as_string()->get());
    }

    double NumberIn(const toml::node& node, std::string_view key) const {
        const auto number = node.is_number() ? node.value<double>() : std::nullopt;
        if (!number || !std::isfinite(*number)) {
            Fail(node, std::string(key) + ": must be a number");
        }
        return *number;
    }

    double NumberOf(const toml::table& table, std::string_view key) const {
        return NumberIn(Required(table, key), key);
    }

    double NumberOr(const toml::table& table, std::string_view key, double otherwise) const {
        return table.contains(key) ? NumberOf(table, key) : otherwise;
    }

    std::uint64_t WholeNumberOf(const toml::node& node, std::string_view key, std::uint64_t lowest,
                                std::uint64_t highest) const {
        const auto number = node.is_integer() ? node.value<std::int64_t>() : std::nullopt;
        if (!number || *number < 0 || static_cast<std::uint64_t>(*number) < lowest ||
            static_cast<std::uint64_t>(*number) > highest) {
            Fail(node, std::string(key) + ": must be a whole number from " + std::to_string(lowest) + " to " +
                           std::to_string(highest));
        }
        return static_cast<std::uint64_t>(*number);
    }

    /// The tables of an array of tables that must be there.
    const toml::array& TablesOf(const toml::table& root, const char* key) const {
        const std::string heading = std::string("[[").append(key).append("]]");
        if (!root.contains(key)) {
            Fail(1, "there is no " + heading + ": " +
                        (heading == "[[vary]]" ? "nothing varies" : "nothing is kept of the results"));
        }
        const toml::node& node = *root.get(key);
        if (!node.is_array_of_tables()) {
            Fail(node, std::string(key) + ": must be tables under " + heading);
        }
        return *node.as_array();
    }

private:
    std::string file_;
};

}  // namespace zirvo::study
