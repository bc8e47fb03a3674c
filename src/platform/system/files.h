#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

/// Files beside the program. The program's own names are those of a system with "\" between folders and no
/// difference between "A" and "a": "\temp\x.pdf" is temp/x.pdf below the program folder, and a name that
/// exists in another case is that file.
namespace Files {

/// The folder of the executable, without a separator at its end.
QString programFolder();

/// Puts another folder in the place of the executable's; an empty one gives it back.
void setProgramFolder(const QString& folder);

/// The full path of a name below the program folder, such as "\tremosilva.ini".
QString inProgramFolder(const QString& name);

/// The path with the system's own separators, "\\", turned into those of the workstation.
QString ownPath(const QString& path);

bool exists(const QString& path);

/// The names of the files in the folder, in order of their names without regard to case. Throws RuntimeError
/// 76 where there is no such folder.
QStringList filesOf(const QString& folder);

/// Deletes the file, write-protected or not. Throws RuntimeError 75 where that fails.
void removeFile(const QString& path);

/// Makes the folder, with those above it, unless it exists. Throws RuntimeError 75.
void makeFolder(const QString& path);

/// Throws RuntimeError 53 where the file does not exist, 75 where it cannot be read.
QByteArray read(const QString& path);

/// Replaces the file whole, where the folder allows it: a reader sees the old content or the new, and the old
/// one stays where the disk has no room for the new one. Throws RuntimeError 75.
void write(const QString& path, const QByteArray& content);

/// Lets those who may read the file run it as a program, where the system keeps that with the file. Throws
/// RuntimeError 75.
void makeExecutable(const QString& path);

/// One value of an initialisation file ("[section]", lines "key=value", code page 1252): section and key are
/// found without regard to case, blanks around the value are dropped, and so is what does not fit a buffer of
/// `bufferSize` characters whose last one is a terminator. `fallback` where file, section or key is absent.
QString profileValue(const QString& section, const QString& key, const QString& fallback, const QString& path,
                     qsizetype bufferSize = 255);

} // namespace Files
