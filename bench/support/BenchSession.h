#ifndef CSBENCH_BENCHSESSION_H
#define CSBENCH_BENCHSESSION_H

#include "support/Comparison.h"

#include <QApplication>

#include <memory>
#include <string>
#include <vector>

namespace CsBench {

// The frame of a benchmark program: a headless QApplication (actions and icons need one), the
// benchmark library's options, and the comparison table printed after the run.
// Extra option: --cs_markdown=<file> writes the table as a Markdown section to <file>.
class BenchSession
{
public:
    BenchSession(int& argc, char** argv);
    ~BenchSession();

    int run(const std::string& title, const std::vector<Comparison>& comparisons);

private:
    std::string markdownPath;
    std::unique_ptr<QApplication> application;
};

} // namespace CsBench

#endif
