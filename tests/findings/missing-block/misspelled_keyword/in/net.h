#define net_DAG_NAME "net"
#define net_image_size 5
/* net HMB_inptu data */
#define net_data_W 40
#define net_data_H 49
#define net_frames_W 3
#define net_frames_H 3
/* mel */
#define net_mel_W 40
#define net_mel_dflip 49
#define net_unit 3
#define net_mel_sign 0
