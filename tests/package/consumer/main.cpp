#include <sigdbref/sigdbref.h>

#include <cstdio>

namespace {

class Callback : public sigdb::RefCallback
{
public:
    void callbackErrorMessage(const std::string &text) override { std::puts(text.c_str()); }
};

} // namespace

int main()
{
    sigdb::OrderQueue queue;
    sigdb::RefInterface interface;
    interface.setOrderQueue(queue);
    Callback callback;

    sigdb::SigdbElementWithMaxCount network;
    network.setType(4);
    network.setTID(4711);
    if (interface.getElementSubElementList(network, &callback) != 1)
        return 1;

    const sigdb::Order order = queue.takeFirst();
    std::printf("order %d with %d bytes\n", order.orderType, static_cast<int>(order.data.size()));
    return order.orderType == 5003 && order.data.size() == 86 ? 0 : 1;
}
