// For unit tests only: a registry and runtimes that a test describes, and a log of what the search
// reads.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "runtime/jvm_library.h"
#include "runtime/registry_search.h"

namespace tarn {

struct FakeSubkey {
    std::wstring name;
    std::wstring javaHome = {};
    bool opens = true;
};

struct FakeMachine {
    /// By the root's key. Other roots cannot be opened.
    std::map<std::wstring, std::vector<FakeSubkey>> roots;
    /// Full paths of the `jvm.dll` files.
    std::set<std::wstring> libraries;

    /// Adds a `jvm.dll` to each of the `folders` ("client", "server" ...) of the runtime in `home`.
    void AddRuntime(const std::wstring& home, const std::vector<std::wstring>& folders) {
        for (const std::wstring& folder : folders) {
            libraries.insert(home + L"bin\\" + folder + L"\\jvm.dll");
        }
    }
};

/// The registry reader of `SearchRegistry` for such a machine.
class FakeRegistry {
  public:
    explicit FakeRegistry(const FakeMachine& machine) : machine_(machine) {}

    bool OpenRoot(const wchar_t* key) {
        reads.push_back(std::wstring(L"root ") + key);
        const auto found = machine_.roots.find(key);
        root_ = found != machine_.roots.end() ? &found->second : nullptr;
        next_ = 0;
        return root_ != nullptr;
    }

    bool NextSubkey(std::wstring& name) {
        if (next_ == root_->size()) return false;
        name = (*root_)[next_++].name;
        return true;
    }

    HomeValue ReadHome(const std::wstring& name) {
        reads.push_back(L"key " + name);
        for (const FakeSubkey& subkey : *root_) {
            if (subkey.name != name) continue;
            return subkey.opens ? HomeValue{true, subkey.javaHome} : HomeValue{};
        }
        return {};
    }

    bool FindJvm(const std::wstring& home, JvmType type, bool& server) {
        reads.push_back(L"home " + home);
        for (const JvmLibraryPlace& place : JvmLibraryPlaces(type)) {
            if (!machine_.libraries.contains(home + std::wstring(place.path))) continue;
            server = place.server;
            return true;
        }
        return false;
    }

    /// In order: "root KEY", "key NAME", "home HOME".
    std::vector<std::wstring> reads;

  private:
    const FakeMachine& machine_;
    const std::vector<FakeSubkey>* root_ = nullptr;
    std::size_t next_ = 0;
};

}  // namespace tarn
