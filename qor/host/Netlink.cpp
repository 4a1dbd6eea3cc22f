#include "qor/host/Netlink.h"

#include <linux/netlink.h>
#include <linux/rtnetlink.h>
#include <net/if.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <functional>

namespace qor {
namespace {

class NetlinkSocket {
public:
    NetlinkSocket() : fd_(::socket(AF_NETLINK, SOCK_RAW | SOCK_CLOEXEC, NETLINK_ROUTE)) {}
    ~NetlinkSocket() {
        if (fd_ >= 0) ::close(fd_);
    }
    int fd() const { return fd_; }

private:
    int fd_;
};

// Sends one dump request and hands each answer message to `each`.
NetlinkFailure NetlinkDump(int type, unsigned char family,
                           const std::function<void(const nlmsghdr *)> &each) {
    NetlinkSocket sock;
    if (sock.fd() < 0) return NetlinkFailure::Socket;
    struct {
        nlmsghdr header;
        rtgenmsg body;
    } request{};
    request.header.nlmsg_len = sizeof request;
    request.header.nlmsg_type = static_cast<unsigned short>(type);
    request.header.nlmsg_flags = NLM_F_REQUEST | NLM_F_DUMP;
    request.header.nlmsg_seq = 1;
    request.body.rtgen_family = family;
    sockaddr_nl kernel{};
    kernel.nl_family = AF_NETLINK;
    if (::sendto(sock.fd(), &request, sizeof request, 0, reinterpret_cast<sockaddr *>(&kernel),
                 sizeof kernel) < 0)
        return NetlinkFailure::Dump;
    std::vector<char> buffer(1 << 16);
    for (;;) {
        ssize_t got = ::recv(sock.fd(), buffer.data(), buffer.size(), 0);
        if (got < 0) {
            if (errno == EINTR) continue;
            return NetlinkFailure::Dump;
        }
        if (got == 0) {
            errno = EPROTO;
            return NetlinkFailure::Dump;
        }
        int left = static_cast<int>(got);
        for (auto *msg = reinterpret_cast<nlmsghdr *>(buffer.data()); NLMSG_OK(msg, left);
             msg = NLMSG_NEXT(msg, left)) {
            if (msg->nlmsg_type == NLMSG_DONE) return NetlinkFailure::None;
            if (msg->nlmsg_type == NLMSG_ERROR) {
                const auto *error = static_cast<const nlmsgerr *>(NLMSG_DATA(msg));
                errno = error->error < 0 ? -error->error : EPROTO;
                return NetlinkFailure::Dump;
            }
            each(msg);
        }
    }
}

}  // namespace

NetlinkFailure ReadNetlinkInterfaces(std::vector<NetlinkInterface> &out) {
    out.clear();
    return NetlinkDump(RTM_GETLINK, AF_UNSPEC, [&](const nlmsghdr *msg) {
        if (msg->nlmsg_type != RTM_NEWLINK || msg->nlmsg_len < NLMSG_LENGTH(sizeof(ifinfomsg)))
            return;
        const auto *info = static_cast<const ifinfomsg *>(NLMSG_DATA(msg));
        NetlinkInterface row;
        row.index = info->ifi_index;
        row.flags = info->ifi_flags;
        int length = static_cast<int>(IFLA_PAYLOAD(msg));
        for (auto *attr = IFLA_RTA(info); RTA_OK(attr, length); attr = RTA_NEXT(attr, length)) {
            if (attr->rta_type == IFLA_IFNAME)
                row.name.assign(static_cast<const char *>(RTA_DATA(attr)),
                                ::strnlen(static_cast<const char *>(RTA_DATA(attr)), RTA_PAYLOAD(attr)));
        }
        out.push_back(row);
    });
}

NetlinkFailure ReadNetlinkAddresses(std::vector<NetlinkAddress> &out) {
    out.clear();
    return NetlinkDump(RTM_GETADDR, AF_INET, [&](const nlmsghdr *msg) {
        if (msg->nlmsg_type != RTM_NEWADDR || msg->nlmsg_len < NLMSG_LENGTH(sizeof(ifaddrmsg)))
            return;
        const auto *info = static_cast<const ifaddrmsg *>(NLMSG_DATA(msg));
        if (info->ifa_family != AF_INET) return;
        NetlinkAddress row;
        row.index = static_cast<int>(info->ifa_index);
        row.prefixLength = info->ifa_prefixlen;
        bool found = false;
        int length = static_cast<int>(IFA_PAYLOAD(msg));
        for (auto *attr = IFA_RTA(info); RTA_OK(attr, length); attr = RTA_NEXT(attr, length)) {
            // IFA_LOCAL is the interface's own address; IFA_ADDRESS is the
            // peer's on point-to-point links, so the local one wins.
            if ((attr->rta_type == IFA_LOCAL || (attr->rta_type == IFA_ADDRESS && !found)) &&
                RTA_PAYLOAD(attr) >= 4) {
                std::memcpy(&row.address, RTA_DATA(attr), 4);
                found = true;
            }
        }
        if (found) out.push_back(row);
    });
}

}  // namespace qor
