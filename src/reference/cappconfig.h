// CAppConfig and the platform functions: configuration file, library files, folders.
#pragma once

#include "cstring.h"

#include <QString>
#include <QStringList>

#include <map>
#include <string>

class QIODevice;

/*
 * Reads a "key = value" file into members that the application registers.
 * The library registers "Platform" itself; a derived class registers its own
 * keys in its constructor, before readConfigFile, with registerStringKey and
 * registerBoolKey. The registered pointers must outlive the object, which is
 * why they are normally the derived class's own members.
 *
 * Keys match without regard to case; a line without "=" and a key nobody
 * registered are ignored. A missing file is not an error. Lines longer than
 * MaxLineBytes are skipped whole, so a hostile file costs at most that much
 * memory beyond what it sets.
 */
class LIBBEDROCK_EXPORT CAppConfig
{
public:
    static constexpr int MaxLineBytes = 64 * 1024;

    CAppConfig();
    virtual ~CAppConfig();

    // Reads the file at the UTF-8 path, then sets the platform and calls afterReadConfigFile.
    void readConfigFile(char const* path);
    // The same over an open device, for configuration that does not come from a file.
    void readConfigFromDevice(QIODevice& device);
    virtual void afterReadConfigFile();

    void privAutoCheckOSType();
    bool isPlatformWindows() const;
    // 0 win, 1 linux, 2 mac.
    int getPlatform() const { return m_platform; }
    CString const& getPlatformText() const { return m_platformText; }

    // Assigns the UTF-8 value only when s is empty.
    static void setStringValIfNotSet(CString& s, char const* value);

protected:
    // A later registration of the same key replaces the earlier one.
    void registerStringKey(const std::string& key, CString* target);
    void registerBoolKey(const std::string& key, bool* target);

    // Looked up in key order; the first case-insensitive match takes the value.
    std::map<std::string, CString*> m_stringKeys;
    std::map<std::string, bool*> m_boolKeys;
    int m_platform;
    CString m_platformText;

private:
    void readLines(QIODevice& device);
    void applyLine(const QString& line);
    void finishReading();
};

// name (a library base name such as "LibOntario") becomes the path of its
// dynamic library in the Frameworks folder beside the application's folder.
// The first argument is not read.
LIBBEDROCK_EXPORT void getOSLibFilename(QString const& ignored, QString& name);
LIBBEDROCK_EXPORT QString getQTBuildFolderNameVerStr();
// Creates path and its parents, relative to the root folder.
LIBBEDROCK_EXPORT bool makeFolderExists(CString const& path);
// Appends the user's home folder and "/Documents"; the other arguments are not read.
LIBBEDROCK_EXPORT void formatWinDocPathToMacPath(CString& out, CString const&, char const*, int);

// Reveals the file in the desktop's file manager without waiting for it;
// failure is silent.
LIBBEDROCK_EXPORT void showInFolder(QString const& path);
// The program and arguments that showInFolder starts on a platform
// (0 win, 1 linux, 2 mac); false when there is nothing to start.
LIBBEDROCK_EXPORT bool showInFolderCommand(QString const& path, int platform, QString& program,
                                           QStringList& arguments);
// Starts a detached process; replaceable so that tests launch nothing.
using ShowInFolderLauncher = bool (*)(QString const& program, QStringList const& arguments);
// Installs a launcher (null restores the default) and returns the previous one.
LIBBEDROCK_EXPORT ShowInFolderLauncher setShowInFolderLauncher(ShowInFolderLauncher launcher);
