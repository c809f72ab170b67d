#pragma once

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>

/// A project on a real disk, of a few files with known sizes.
///
///     boats/          barge.mesh (300)  Sail.mesh (20)
///     scripts/        arena_defs/quay.xml (50)  weir.lua (1500)
///     textures/       quay.png
///     notes.txt (5)
class SampleProject
{
public:
    SampleProject()
    {
        write("boats/barge.mesh", 300);
        write("boats/Sail.mesh", 20);
        write("scripts/arena_defs/quay.xml", 50);
        write("scripts/weir.lua", 1500);
        write("notes.txt", 5);
        QDir(path()).mkpath("textures");
        QImage image(24, 16, QImage::Format_ARGB32);
        image.fill(0x80ff0000);
        image.save(filePath("textures/quay.png"));
    }

    QString path() const { return m_folder.path(); }
    QString filePath(const QString& file) const { return m_folder.filePath(file); }

    void write(const QString& file, int bytes)
    {
        QDir(path()).mkpath(QFileInfo(file).path());
        QFile out(filePath(file));
        out.open(QIODevice::WriteOnly);
        out.write(QByteArray(bytes, 'x'));
    }

private:
    QTemporaryDir m_folder;
};
