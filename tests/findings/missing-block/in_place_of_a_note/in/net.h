#define net_DAG_NAME "net"
#define net_image_size 5
#define net_image_size_old 6
/* mel */
#define net_mel_W 40
#define net_mel_H 49
#define net_mel_sign 0
