#pragma once

#include "ScreenCapture.h"

#include <QStringList>

namespace perchly {

/// A capture that ends when the test says so.
class FakeScreenCapture : public ScreenCapture {
public:
    Task captureRegion(const QString &path, Completion completion) override {
        paths.append(path);
        m_completion = std::move(completion);
        return std::make_unique<ScheduledTask>();
    }

    void finish(int status) { std::exchange(m_completion, {})(status); }

    QStringList paths;

private:
    Completion m_completion;
};

} // namespace perchly
