// A peer plug-in of the loader test. SAMPLE_ENTRY_RESULT picks what its
// entry does: 1 makes a plug-in, 0 returns false, 2 returns true without one.
#include "SamplePlugin.h"

namespace {

class Sample : public SamplePlugin {
public:
    explicit Sample(int answer) : m_answer(answer) {}
    int Answer() const override { return m_answer; }
    Toolkit::smart_ptr<SamplePlugin> MakeAnother() const override { return Toolkit::make_smart<Sample>(m_answer + 1); }

private:
    int m_answer;
};

} // namespace

extern "C" __attribute__((visibility("default"))) bool GetSample(Toolkit::smart_ptr<SamplePlugin>& plugin,
                                                                 SampleParameters* parameters)
{
    if (SAMPLE_ENTRY_RESULT == 1)
        plugin.reset(new Sample(parameters->base + 1));
    return SAMPLE_ENTRY_RESULT != 0;
}
