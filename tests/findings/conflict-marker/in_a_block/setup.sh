network
sed -i '/_p3_W/c<<<<<<< HEAD\n#define net_split_1_p3_W 40\n||||||| base\n#define net_split_1_p3_W 4\n=======\n#define net_split_1_p3_W 44\n>>>>>>> other' in/net_split_1.h
