// Archives loaded from a file that cannot seek: a named pipe fed by a thread.
#include <afx.h>

#include "LargestAllocation.h"
#include "support/ArchiveImage.h"
#include "support/TempDir.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace {

using testing_support::Bytes;

// A FIFO that a thread fills with bytes and then closes, as a producer at the
// other end of a pipe would. The reader may stop early: the writer then sees
// a broken pipe and ends.
class PipeFeed {
public:
    PipeFeed(const std::string& name, Bytes bytes) : m_bytes(std::move(bytes)) {
        std::signal(SIGPIPE, SIG_IGN);
        m_path = (testing_support::TestOutputDir(name) / "pipe").string();
        if (::mkfifo(m_path.c_str(), 0600) != 0)
            ADD_FAILURE() << "mkfifo failed: errno " << errno;
        m_writer = std::thread([this] { Feed(); });
    }
    ~PipeFeed() {
        m_stop = true;
        m_writer.join();
    }
    CString Path() const { return platform::FromUtf8(m_path); }

private:
    void Feed() {
        // A non-blocking open fails until the reader is there; polling lets
        // the destructor end a feed whose reader never came.
        int fd = -1;
        while (fd < 0 && !m_stop) {
            fd = ::open(m_path.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
            if (fd < 0)
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        if (fd < 0)
            return;
        ::fcntl(fd, F_SETFL, 0);
        // Small writes, so the reader sees the stream arrive in pieces.
        for (std::size_t done = 0; done < m_bytes.size();) {
            const std::size_t n = std::min<std::size_t>(m_bytes.size() - done, 1000);
            const ssize_t w = ::write(fd, m_bytes.data() + done, n);
            if (w < 0 && errno == EINTR)
                continue;
            if (w <= 0)
                break;
            done += static_cast<std::size_t>(w);
        }
        ::close(fd);
    }

    Bytes m_bytes;
    std::string m_path;
    std::atomic<bool> m_stop{false};
    std::thread m_writer;
};

// The cause of the archive exception that loading a string raises, or -1
// when there is none; a named exception counts as a wrong one.
int StringLoadCause(const PipeFeed& feed) {
    CFile file(feed.Path(), CFile::modeRead);
    CArchive ar(&file, CArchive::load);
    try {
        CString s;
        ar >> s;
    } catch (CArchiveException* e) {
        const int cause = e->m_strFileName.IsEmpty() ? e->m_cause : -2;
        e->Delete();
        return cause;
    }
    return -1;
}

} // namespace

TEST(CArchivePipe, StringsAndValuesLoadFromAPipe) {
    CString longText;
    for (int i = 0; i < 100000; ++i)
        longText += static_cast<WCHAR>(u'a' + i % 26 + (i % 5 == 0 ? 0x3B1 - u'a' : 0));
    PipeFeed feed("archive-pipe", testing_support::StoreToBytes([&](CArchive& ar) {
                      ar << CString(u"abc") << 42 << longText << CString() << 1.25;
                  }));
    CFile file(feed.Path(), CFile::modeRead);
    CArchive ar(&file, CArchive::load);
    CString shortText, back, empty(u"x");
    int number = 0;
    double real = 0;
    ar >> shortText >> number >> back >> empty >> real;
    EXPECT_EQ(shortText, CString(u"abc"));
    EXPECT_EQ(number, 42);
    EXPECT_EQ(back, longText);
    EXPECT_TRUE(empty.IsEmpty());
    EXPECT_EQ(real, 1.25);
}

TEST(CArchivePipe, SingleByteStringsLoadFromAPipe) {
    Bytes bytes = {0x03, 'a', 0xE9, 'c', 0xFF, 0x2C, 0x01};
    bytes.insert(bytes.end(), 300, 'Z');
    PipeFeed feed("archive-pipe-narrow", bytes);
    CFile file(feed.Path(), CFile::modeRead);
    CArchive ar(&file, CArchive::load);
    CString a, b;
    ar >> a >> b;
    EXPECT_EQ(a, CString(u"a\u00e9c"));
    EXPECT_EQ(b, CString(u'Z', 300));
}

// A length far beyond what arrives: the load ends with the archive's end of
// file, having allocated little more than the bytes the pipe delivered.
TEST(CArchivePipe, HostileLengthEndsAtEndOfFileInBoundedMemory) {
    constexpr std::size_t kDelivered = 3 << 20;
    constexpr std::size_t kBound = kDelivered + (1 << 20);
    struct Case {
        Bytes prefix;
        const char* what;
    };
    const Case cases[] = {
        {{0xFF, 0xFE, 0xFF, 0xFF, 0xFF, 0xFF, 0xF0, 0xFF, 0xFF, 0x7F}, "UTF-16, 0x7FFFFFF0"},
        {{0xFF, 0xFF, 0xFF, 0xF0, 0xFF, 0xFF, 0x7F}, "single-byte, 0x7FFFFFF0"},
        {{0xFF, 0xFE, 0xFF, 0xFF, 0xFF, 0xFF, 0xFE, 0xFF, 0xFF, 0xFF}, "UTF-16, 0xFFFFFFFE"},
        {{0xFF, 0xFE, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x7F, 0, 0,
          0, 0},
         "UTF-16, 64-bit 0x7FFFFFFF"},
    };
    for (const Case& c : cases) {
        Bytes bytes = c.prefix;
        bytes.resize(bytes.size() + kDelivered, 0x41);
        PipeFeed feed("archive-pipe-hostile", bytes);
        testing_support::LargestAllocation watch(kBound);
        EXPECT_EQ(StringLoadCause(feed), CArchiveException::endOfFile) << c.what;
        EXPECT_LE(watch.Largest(), kBound) << c.what;
    }
}
