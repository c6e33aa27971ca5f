#ifndef __NET_H__
#define __NET_H__
#define net_DAG_NAME "net"
#define net_image_size 5
#endif
