#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarn::test {

/// The text of a settings file: sections and keys in the order in which they were first set.
class SettingsText {
  public:
    /// Sets the key; an earlier value is replaced.
    SettingsText& Set(std::wstring_view section, std::wstring_view key, std::wstring_view value);
    /// The same for the two sections that contain most keys.
    SettingsText& Application(std::wstring_view key, std::wstring_view value);
    SettingsText& Runtime(std::wstring_view key, std::wstring_view value);
    /// Removes the key.
    SettingsText& Remove(std::wstring_view section, std::wstring_view key);

    /// The file's text, with CR LF at the end of each line.
    std::wstring Text() const;

  private:
    struct Section {
        std::wstring name;
        std::vector<std::pair<std::wstring, std::wstring>> values;
    };
    std::vector<Section> sections_;
};

}  // namespace tarn::test
