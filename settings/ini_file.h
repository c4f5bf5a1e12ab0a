#pragma once

#include <string>
#include <vector>

namespace tarn {

/// A settings file on disk, accessed through the profile functions. Holds only the path; the file
/// is not kept open between calls. The virtual operations and their order are prescribed, although
/// the launcher does not call all of them: docs/developer/compatibility.md.
class IniFile {
  public:
    explicit IniFile(std::wstring path);
    virtual ~IniFile();

    /// Reads the first 4 bytes of the file into `buffer`, to determine whether it can be read.
    /// Returns 0 or the Windows error code.
    virtual unsigned long Probe(unsigned char (&buffer)[4]) const;

    /// Returns the value of a key, of any length; empty when the file, the section or the key is
    /// absent (`GetPrivateProfileStringW`).
    virtual std::wstring GetValue(const wchar_t* section, const wchar_t* key) const;

    /// Returns all section names in file order (`GetPrivateProfileSectionNamesW`).
    virtual std::vector<std::wstring> GetSectionNames() const;

    /// Writes one value (`WritePrivateProfileStringW`). Returns false on failure.
    virtual bool SetValue(const wchar_t* section, const wchar_t* key,
                          const std::wstring& value) const;

    /// Deletes the file (`DeleteFileW`). Returns false on failure.
    virtual bool Remove() const;

    const std::wstring& path() const { return path_; }

  protected:
    /// Returns all section names, each with a terminating null character; empty when there are
    /// none or the file cannot be read.
    std::wstring ReadSectionNames() const;

    /// Returns the key names of a section in the same form. Of several sections with the same name
    /// only the first is listed.
    std::wstring ReadKeyNames(const wchar_t* section) const { return Read(section, nullptr, 2); }

  private:
    /// `spare` is the number of characters by which a truncated result is shorter than the buffer.
    std::wstring Read(const wchar_t* section, const wchar_t* key, std::size_t spare) const;

    std::wstring path_;
};

}  // namespace tarn
